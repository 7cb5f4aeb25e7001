#include "controls/window/AQAboutPanel.h"

#include "controls/window/AQBrandBar.h"
#include "controls/window/AQFlatButton.h"
#include "controls/window/AQGroupHeader.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

struct Library {
    const char* name;
    const char* licence;
};

constexpr Library libraries[] = {
    {"Qt", "LGPL v3"},
    {"spdlog", "MIT"},
    {"fmt", "MIT"},
    {"GLib", QT_TRANSLATE_NOOP("AQAboutPanel", "LGPL v2.1 or later")},
    {"libudev", QT_TRANSLATE_NOOP("AQAboutPanel", "LGPL v2.1 or later")},
};

constexpr int textWidth = 352;

QLabel* makeText(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

QGridLayout* makeLibraryTable(QWidget* parent) {
    auto* table = new QGridLayout;
    table->setHorizontalSpacing(24);
    table->setVerticalSpacing(4);
    table->setColumnStretch(1, 1);
    int row = 0;
    for (const Library& library : libraries) {
        table->addWidget(makeText(QLatin1String(library.name), parent), row, 0);
        table->addWidget(makeText(AQAboutPanel::tr(library.licence), parent), row, 1);
        ++row;
    }
    return table;
}

} // namespace

AQAboutPanel::AQAboutPanel(QWidget* parent) : QDialog(parent) {
    setWindowTitle(tr("About Aquelon"));

    auto* version = new QLabel(tr("Version %1").arg(QCoreApplication::applicationVersion()), this);
    auto* brand = new AQBrandBar(this);
    brand->addTrailingWidget(version);
    auto* purpose = makeText(tr("Edits the daily light program of the Aquelon aquarium lamp "
                                "controller and transfers it over USB."),
                             this);
    purpose->setMinimumWidth(textWidth);
    auto* header = new AQGroupHeader(this);
    header->setTitle(tr("Libraries and their licences"));
    auto* close = new AQFlatButton(this);
    close->setText(tr("Close"));
    close->setDefault(true);
    connect(close, &AQFlatButton::clicked, this, &QDialog::accept);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(close);
    auto* body = new QVBoxLayout;
    body->setContentsMargins(16, 16, 16, 12);
    body->setSpacing(8);
    body->addWidget(purpose);
    body->addSpacing(8);
    body->addWidget(header);
    body->addLayout(makeLibraryTable(this));
    body->addSpacing(8);
    body->addLayout(buttons);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(brand);
    column->addLayout(body);
    column->setSizeConstraint(QLayout::SetFixedSize);
}
