#pragma once

#include <QDateTimeEdit>

/// Qt's editor of date and time, into which a whole date can be typed as it stands there: when a
/// section is full the caret goes on by itself, and the separator typed after that is not taken for
/// another step. In the last section "a" and "p" are enough.
class AQDateTimeEdit : public QDateTimeEdit {
    Q_OBJECT

public:
    using QDateTimeEdit::QDateTimeEdit;

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void chooseHalfOfDay(QChar letter);

    bool m_wentOn = false; ///< since the last digit or letter
};
