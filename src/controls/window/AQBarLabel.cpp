#include "controls/window/AQBarLabel.h"

#include <QFontMetrics>

#include <algorithm>

namespace {

/// The narrowest room in which the text takes two lines at most, broken between words.
int widthInTwoLines(const QFontMetrics& metrics, const QString& text) {
    int narrowest = metrics.horizontalAdvance(text);
    for (qsizetype blank = text.indexOf(u' '); blank >= 0; blank = text.indexOf(u' ', blank + 1))
        narrowest = std::min(narrowest, std::max(metrics.horizontalAdvance(text.left(blank)),
                                                 metrics.horizontalAdvance(text.mid(blank + 1))));
    return narrowest;
}

} // namespace

AQBarLabel::AQBarLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void AQBarLabel::setReserve(const QStringList& texts) {
    m_reserve = texts;
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(!texts.isEmpty());
    setSizePolicy(policy);
    updateGeometry();
}

void AQBarLabel::setLongestLine(int characters) {
    m_longestLine = characters;
    updateGeometry();
}

int AQBarLabel::widthFor(Lines lines) const {
    const QFontMetrics metrics = fontMetrics();
    int width = 0;
    for (const QString& text : m_reserve + QStringList{text()})
        width = std::max(width, lines == Lines::One ? metrics.horizontalAdvance(text)
                                                    : widthInTwoLines(metrics, text));
    return width;
}

QSize AQBarLabel::sizeFor(int width) const {
    const QMargins margins = contentsMargins();
    // One unit more than the text, whose width is rounded down.
    const int text = width > 0 ? width + 1 : 0;
    return {text + margins.left() + margins.right(),
            fontMetrics().height() + margins.top() + margins.bottom()};
}

QSize AQBarLabel::sizeHint() const {
    return sizeFor(widthFor(Lines::One));
}

QSize AQBarLabel::minimumSizeHint() const {
    return sizeFor(widthFor(text().size() > m_longestLine ? Lines::Two : Lines::One));
}
