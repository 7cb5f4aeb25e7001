#include "workflows/ExportCommands.h"

#include "controls/page/DayPage.h"
#include "data/AQDataSource.h"
#include "data/AtomicFile.h"
#include "data/ProgramText.h"
#include "paper/Paper.h"
#include "workflows/DocumentCommands.h"
#include "workflows/Prompts.h"

#include <spdlog/spdlog.h>

#include <QApplication>
#include <QBuffer>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>

namespace {

constexpr int pictureScale = 2;
constexpr int dotsPerMeter = 7559; ///< 192 dpi, so that it is as large in print as on the screen
constexpr double pdfMargin = 15.0; ///< mm

const QString pngType = QStringLiteral("png");
const QString svgType = QStringLiteral("svg");
const QString pdfType = QStringLiteral("pdf");
const QString csvType = QStringLiteral("csv");

} // namespace

ExportCommands::ExportCommands(const Context& context, const QStringList& paperModule,
                               QObject* parent)
    : QObject(parent), m_context(context), m_paper(paperModule) {}

void ExportCommands::menuExport() {
    const std::vector<Prompts::FileType> types{{pngType, tr("PNG picture")},
                                               {svgType, tr("SVG picture")},
                                               {pdfType, tr("PDF document")},
                                               {csvType, tr("CSV table")}};
    const QFileInfo file(m_context.documents.openFilePath());
    const QString folder =
        m_context.documents.openFilePath().isEmpty() ? QString() : file.absolutePath() + u'/';
    m_context.prompts.askWhereToExport(
        folder + name(), types,
        [this, types](const std::optional<QString>& path, const QString& chosen) {
            if (!path)
                return;
            const QString ending = QFileInfo(*path).suffix().toLower();
            const bool isKnown =
                std::ranges::find(types, ending, &Prompts::FileType::ending) != types.end();
            if (isKnown)
                write(*path, ending);
            else
                exportTo(*path + u'.' + chosen, chosen);
        });
}

// A name without the ending gets it. The panel asked about replacing a file of the typed name, not
// of this longer one.
void ExportCommands::exportTo(const QString& path, const QString& type) {
    if (!QFileInfo::exists(path)) {
        write(path, type);
        return;
    }
    m_context.prompts.confirm(
        tr("The file will be overwritten!"),
        tr("%1 exists already. Are you sure you want to continue?").arg(QFileInfo(path).fileName()),
        Prompts::Answer::No, [this, path, type](bool yes) {
            if (yes)
                write(path, type);
        });
}

void ExportCommands::write(const QString& path, const QString& type) {
    auto [contents, fault] = written(type);
    if (fault.isEmpty())
        fault = AtomicFile::replace(path, contents);
    if (fault.isEmpty()) {
        Q_EMIT savedTo(path);
        return;
    }
    SPDLOG_ERROR(fmt::format("{}: {}", path.toStdString(), fault.toStdString()));
    m_context.prompts.alert(tr("Could not export!"),
                            tr("%1 was not written: %2.")
                                .arg(path, QCoreApplication::translate("File", fault.toUtf8())),
                            Prompts::Severity::Critical);
}

ExportCommands::Written ExportCommands::written(const QString& type) {
    if (type == svgType)
        return svg();
    if (type == pdfType)
        return pdf();
    if (type == csvType)
        return {ProgramText::csv(m_context.data.sequence().points()).toUtf8()};
    return png();
}

ExportCommands::Written ExportCommands::png() const {
    const DayPage day = page();
    QImage picture(day.size() * pictureScale, QImage::Format_RGB32);
    if (picture.isNull())
        return {{}, tr("the picture would be too large")};
    picture.fill(Qt::white);
    picture.setDotsPerMeterX(dotsPerMeter);
    picture.setDotsPerMeterY(dotsPerMeter);
    QPainter painter(&picture);
    painter.scale(pictureScale, pictureScale);
    day.paint(painter, 0, day.size().height());
    painter.end();
    QBuffer buffer;
    if (!picture.save(&buffer, "PNG"))
        return {{}, tr("the picture could not be drawn")};
    return {buffer.data()};
}

ExportCommands::Written ExportCommands::svg() {
    Paper* paper = m_paper.load();
    if (!paper)
        return {{}, tr("a part of the program is missing. %1").arg(m_paper.errorString())};
    const DayPage day = page();
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const bool isDrawn = paper->writeSvg(buffer, day.size(), name(), [&day](QPainter& painter) {
        painter.fillRect(QRect({}, day.size()), Qt::white);
        day.paint(painter, 0, day.size().height());
    });
    return {buffer.data(), isDrawn ? QString() : tr("the picture could not be drawn")};
}

ExportCommands::Written ExportCommands::pdf() const {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter document(&buffer);
    document.setTitle(name());
    document.setCreator(QStringLiteral("Aquelon %1").arg(QApplication::applicationVersion()));
    document.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                       QMarginsF(pdfMargin, pdfMargin, pdfMargin, pdfMargin),
                                       QPageLayout::Millimeter));
    const bool isDrawn = page().paintPages(document);
    return {buffer.data(), isDrawn ? QString() : tr("the pages could not be drawn")};
}

void ExportCommands::menuPrint() {
    Paper* paper = m_paper.load();
    if (!paper) {
        m_context.prompts.alert(
            tr("Could not print!"),
            tr("A part of the program is missing. %1").arg(m_paper.errorString()),
            Prompts::Severity::Critical);
        return;
    }
    if (!paper->hasPrinter()) {
        m_context.prompts.alert(tr("There is no printer!"),
                                tr("This computer knows no printer. \"File | Export...\" makes a "
                                   "PDF document, which can be printed elsewhere."),
                                Prompts::Severity::Information);
        return;
    }
    paper->print(
        m_context.window, name(),
        [page = page()](QPagedPaintDevice& device) { return page.paintPages(device); },
        [this] {
            m_context.prompts.alert(tr("Could not print!"),
                                    tr("The printer or the file did not take the pages."),
                                    Prompts::Severity::Critical);
        });
}

DayPage ExportCommands::page() const {
    const auto device = m_context.data.device();
    const QString controller = device ? QStringLiteral("%1.%2.%3")
                                            .arg(device->version.major)
                                            .arg(device->version.minor)
                                            .arg(device->build)
                                      : QString();
    return {{name(), QDate::currentDate(), controller, m_context.data.sequence().points()},
            QApplication::font()};
}

QString ExportCommands::name() const {
    const QString& path = m_context.documents.openFilePath();
    return path.isEmpty() ? tr("Untitled") : QFileInfo(path).completeBaseName();
}
