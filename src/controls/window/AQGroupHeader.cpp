#include "controls/window/AQGroupHeader.h"

#include "controls/AccentColor.h"
#include "controls/window/AQHelpButton.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

namespace {

constexpr int headerHeight = 32;
constexpr int ruleGap = 12;

} // namespace

AQGroupHeader::AQGroupHeader(QWidget* parent)
    : QWidget(parent), m_title(new QLabel(this)), m_helpButton(new AQHelpButton(this)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_title);
    row->addStretch(1);
    row->addWidget(m_helpButton);
    m_helpButton->hide();
    setMinimumHeight(headerHeight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_helpButton, &AQHelpButton::clicked, this, &AQGroupHeader::helpRequested);
    styleTitle();
}

QString AQGroupHeader::title() const {
    return m_title->text();
}

void AQGroupHeader::setTitle(const QString& title) {
    m_title->setText(title);
    setAccessibleName(title);
    m_helpButton->setAccessibleName(tr("Help on %1").arg(title));
    update();
}

bool AQGroupHeader::isHelpAvailable() const {
    return !m_helpButton->isHidden();
}

void AQGroupHeader::setHelpAvailable(bool available) {
    m_helpButton->setVisible(available);
}

void AQGroupHeader::styleTitle() {
    QFont bold = font();
    // The table's header uses the same font; another one would take its time at the start.
    bold.setWeight(QFont::Bold);
    bold.setLetterSpacing(QFont::PercentageSpacing, 103.0);
    m_title->setFont(bold);
}

void AQGroupHeader::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        styleTitle();
}

void AQGroupHeader::paintEvent(QPaintEvent* /*event*/) {
    const int left = m_title->geometry().right() + ruleGap;
    const int right = isHelpAvailable() ? m_helpButton->x() - ruleGap : width();
    if (left < right) {
        QPainter painter(this);
        painter.fillRect(left, height() / 2, right - left, 1, AccentColor::tone(palette(), 0.18));
    }
}
