#include "controls/time/AQDateTimeEdit.h"

#include <QKeyEvent>
#include <QLineEdit>

void AQDateTimeEdit::keyPressEvent(QKeyEvent* event) {
    const QString text = event->text();
    const bool isTyped = text.size() == 1 && text.front().isPrint() &&
                         !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier));
    if (!isTyped) {
        m_wentOn = false;
        QDateTimeEdit::keyPressEvent(event);
        return;
    }
    if (lineEdit()->selectedText() == lineEdit()->text())
        setSelectedSection(sectionAt(0));
    const int section = currentSectionIndex();
    if (currentSection() == AmPmSection && text.front().isLetter()) {
        chooseHalfOfDay(text.front().toLower());
    } else if (text.front().isLetterOrNumber()) {
        QDateTimeEdit::keyPressEvent(event);
        m_wentOn = currentSectionIndex() != section;
    } else {
        if (!m_wentOn && section + 1 < sectionCount())
            setSelectedSection(sectionAt(section + 1));
        m_wentOn = true;
    }
}

void AQDateTimeEdit::chooseHalfOfDay(QChar letter) {
    constexpr int half = 12;
    if (letter != u'a' && letter != u'p')
        return;
    const QTime now = time();
    setTime({now.hour() % half + (letter == u'p' ? half : 0), now.minute(), now.second()});
    setSelectedSection(AmPmSection);
}
