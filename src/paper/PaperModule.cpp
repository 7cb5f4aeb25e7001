#include "paper/PaperModule.h"

#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSvgGenerator>

#include <memory>

namespace {

constexpr int dotsPerInch = 96; ///< what the unit of a style sheet is

} // namespace

bool PaperModule::hasPrinter() const {
    return !QPrinterInfo::availablePrinterNames().isEmpty();
}

void PaperModule::print(QWidget& window, const QString& documentName,
                        std::function<bool(QPagedPaintDevice&)> paint,
                        std::function<void()> failed) {
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(documentName);
    auto* dialog = new QPrintDialog(printer.get(), &window);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    // Pages are few: they are printed all.
    dialog->setOption(QAbstractPrintDialog::PrintPageRange, false);
    QObject::connect(dialog, &QPrintDialog::finished, dialog,
                     [printer, paint = std::move(paint), failed = std::move(failed)](int result) {
                         if (result == QDialog::Accepted && !paint(*printer))
                             failed();
                     });
    dialog->open();
}

bool PaperModule::writeSvg(QIODevice& device, QSize size, const QString& title,
                           const std::function<void(QPainter&)>& paint) {
    QSvgGenerator picture;
    picture.setOutputDevice(&device);
    picture.setResolution(dotsPerInch);
    picture.setSize(size);
    picture.setViewBox(QRect(QPoint(0, 0), size));
    picture.setTitle(title);
    QPainter painter;
    if (!painter.begin(&picture))
        return false;
    paint(painter);
    return painter.end();
}
