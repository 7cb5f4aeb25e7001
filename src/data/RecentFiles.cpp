#include "data/RecentFiles.h"

#include "data/AtomicFile.h"
#include "data/RegularFile.h"

#include <glib.h>
#include <spdlog/spdlog.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>
#include <memory>
#include <string>

namespace {

constexpr qint64 maxListSize = 32 << 20; // bytes
constexpr const char* ourName = "Aquelon";
constexpr const char* ourCommand = "aquelon %f";
constexpr const char* mimeType = "application/x-aquelon-program+xml";

template <auto release>
struct Release {
    template <class T>
    void operator()(T* pointer) const {
        release(pointer);
    }
};
using Bookmarks = std::unique_ptr<GBookmarkFile, Release<g_bookmark_file_free>>;
using Text = std::unique_ptr<gchar, Release<g_free>>;
using Texts = std::unique_ptr<gchar*, Release<g_strfreev>>;
using Time = std::unique_ptr<GDateTime, Release<g_date_time_unref>>;
using Error = std::unique_ptr<GError, Release<g_error_free>>;

void log(const QString& list, const QString& fault) {
    SPDLOG_ERROR(fmt::format("{}: {}", list.toStdString(), fault.toStdString()));
}

/// Null when there is a list that cannot be read.
Bookmarks read(const QString& list) {
    Bookmarks bookmarks(g_bookmark_file_new());
    if (!QFileInfo::exists(list))
        return bookmarks;
    const auto [bytes, fault] = RegularFile::read(list, maxListSize);
    if (!fault.isEmpty()) {
        log(list, fault);
        return nullptr;
    }
    GError* error = nullptr;
    if (!g_bookmark_file_load_from_data(bookmarks.get(), bytes.constData(),
                                        static_cast<gsize>(bytes.size()), &error)) {
        log(list, QString::fromUtf8(Error(error)->message));
        return nullptr;
    }
    return bookmarks;
}

void write(const QString& list, GBookmarkFile& bookmarks) {
    gsize size = 0;
    const Text text(g_bookmark_file_to_data(&bookmarks, &size, nullptr));
    if (!text)
        return;
    const bool isNew = !QFileInfo::exists(list);
    if (isNew)
        QDir().mkpath(QFileInfo(list).path());
    const QString fault =
        AtomicFile::replace(list, QByteArray(text.get(), static_cast<qsizetype>(size)));
    if (!fault.isEmpty())
        log(list, fault);
    else if (isNew)
        QFile::setPermissions(list, QFile::ReadOwner | QFile::WriteOwner);
}

/// The addresses of the light programs that this program may show.
std::vector<std::string> programsIn(GBookmarkFile& bookmarks) {
    std::vector<std::string> addresses;
    const Texts all(g_bookmark_file_get_uris(&bookmarks, nullptr));
    for (gchar** each = all.get(); each && *each; ++each) {
        const Text type(g_bookmark_file_get_mime_type(&bookmarks, *each, nullptr));
        const bool isHidden = g_bookmark_file_get_is_private(&bookmarks, *each, nullptr) &&
                              !g_bookmark_file_has_application(&bookmarks, *each, ourName, nullptr);
        if (type && g_str_equal(type.get(), mimeType) && !isHidden)
            addresses.emplace_back(*each);
    }
    return addresses;
}

gint64 lastUse(GBookmarkFile& bookmarks, const std::string& address) {
    GDateTime* time = g_bookmark_file_get_modified_date_time(&bookmarks, address.c_str(), nullptr);
    return time ? g_date_time_to_unix(time) * G_USEC_PER_SEC + g_date_time_get_microsecond(time)
                : 0;
}

} // namespace

QString RecentFiles::standardList() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/recently-used.xbel");
}

std::vector<RecentFiles::Entry> RecentFiles::entries() const {
    const Bookmarks bookmarks = m_list.isEmpty() ? nullptr : read(m_list);
    if (!bookmarks)
        return {};
    auto addresses = programsIn(*bookmarks);
    std::ranges::stable_sort(addresses, std::ranges::greater(), [&](const std::string& address) {
        return lastUse(*bookmarks, address);
    });
    std::vector<Entry> entries;
    for (const std::string& address : addresses) {
        // What is elsewhere than in the file system cannot be opened.
        if (const Text path{g_filename_from_uri(address.c_str(), nullptr, nullptr)})
            entries.push_back({QFile::decodeName(path.get()),
                               g_bookmark_file_has_application(bookmarks.get(), address.c_str(),
                                                               ourName, nullptr) != FALSE});
    }
    return entries;
}

void RecentFiles::add(const QString& path) const {
    const Bookmarks bookmarks = m_list.isEmpty() ? nullptr : read(m_list);
    const Text address(
        g_filename_to_uri(QFile::encodeName(QDir::cleanPath(path)).constData(), nullptr, nullptr));
    if (!bookmarks || !address)
        return;
    const Time now(g_date_time_new_now_utc());
    g_bookmark_file_set_mime_type(bookmarks.get(), address.get(), mimeType);
    g_bookmark_file_add_application(bookmarks.get(), address.get(), ourName, ourCommand);
    g_bookmark_file_set_visited_date_time(bookmarks.get(), address.get(), now.get());
    g_bookmark_file_set_modified_date_time(bookmarks.get(), address.get(), now.get());
    write(m_list, *bookmarks);
}

void RecentFiles::clear() const {
    const Bookmarks bookmarks = m_list.isEmpty() ? nullptr : read(m_list);
    if (!bookmarks)
        return;
    for (const std::string& address : programsIn(*bookmarks)) {
        // False when this program is not among those that used it.
        if (!g_bookmark_file_remove_application(bookmarks.get(), address.c_str(), ourName, nullptr))
            continue;
        const Texts others(
            g_bookmark_file_get_applications(bookmarks.get(), address.c_str(), nullptr, nullptr));
        if (!others || !*others)
            g_bookmark_file_remove_item(bookmarks.get(), address.c_str(), nullptr);
    }
    write(m_list, *bookmarks);
}
