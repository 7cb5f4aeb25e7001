#include "data/AQDataSource.h"
#include "data/AQDataSourceReader.h"
#include "data/AQDataSourceWriter.h"

#include <cstdio>
#include <string_view>
#include <unistd.h>

// save_once save|load[-unprivileged] FILE: saves a program of 300 points, more than one read, or
// loads one.
//
// Says how it went: 0 for a success; 1 for a failure that left the document as it was, with the
// reason; 2 when the answer and the document do not fit together. Two calls that do nothing show a
// tracer where the work begins and ends.

namespace {

template <class Work>
bool marked(Work work) {
    ::access("/the-work-begins", F_OK);
    const bool ok = work();
    ::access("/the-work-ends", F_OK);
    return ok;
}

int answer(bool ok, bool changed, const QString& reason) {
    std::puts(qPrintable(reason));
    return ok != changed || ok != reason.isEmpty() ? 2 : ok ? 0 : 1;
}

int save(AQDataSource& document, const QString& path) {
    document.sequence().replacePoints(std::vector<AQTimePoint>(300));
    document.setIsDirty(true);
    AQDataSourceWriter writer(document);
    const bool ok = marked([&] { return writer.saveToFile(path); });
    return answer(ok, !document.isDirty(), writer.errorString());
}

int load(AQDataSource& document, const QString& path) {
    const auto before = document.contents();
    AQDataSourceReader reader(document);
    const bool ok = marked([&] { return reader.loadFromFile(path); });
    return answer(ok, document.contents() != before, reader.errorString());
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 3)
        return 64;
    const std::string_view job = argv[1];
    if (job.ends_with("-unprivileged") && ::geteuid() == 0 && ::seteuid(65534) != 0)
        return 64;
    NotificationCenter notifications;
    AQDataSource document(notifications);
    const QString path = QString::fromLocal8Bit(argv[2]);
    return job.starts_with("save") ? save(document, path) : load(document, path);
}
