#pragma once

#include <QLineEdit>
#include <QTimer>

#include <functional>

/// A line of text for one value that a person types, inside of something that keeps the value.
///
/// What is wrong with a text is told soon after a pause in the typing or when the field is left, as
/// text on the way to a right one is mostly wrong: the field has a red frame, screen readers say
/// it, and `faultChanged` has the words. Right text is told at once.
///
/// Undo, copy, cut and paste are the typed text's; without any their keys go to the window's
/// actions. No key that it gets comes to its parent.
class TypedField : public QLineEdit {
    Q_OBJECT

public:
    /// Why a text is none, as TypedValue says it; empty for right text.
    using Judge = std::function<QString(const QString& text)>;

    TypedField(Judge judge, QWidget* parent);

    /// `text` is what the value is now.
    void showPresent(const QString& text);
    /// The person made another text of the present one.
    bool hasTyped() const { return text() != m_present; }
    /// Tells now what is wrong with the typed text; true when nothing is, or nothing is typed.
    bool check();
    /// What was told last, a sentence with a full stop; empty for nothing.
    QString fault() const { return m_fault; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void faultChanged(const QString& fault);
    /// Enter and Escape.
    void entered();
    void cancelled();
    /// The focus went elsewhere in the window; a menu or another window is no such place.
    void left();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setFault(const QString& fault);

    const Judge m_judge;
    QString m_present;
    QString m_fault;
    QTimer m_pause; ///< of the typing
};
