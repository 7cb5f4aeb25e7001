#pragma once

#include <QLabel>
#include <QStringList>

/// A text in the brand bar: one line where there is room, else two, and never cut.
class AQBarLabel : public QLabel {
    Q_OBJECT

public:
    explicit AQBarLabel(QWidget* parent = nullptr);

    /// Keeps the room that each of these texts would take, also while hidden, so that its
    /// neighbours stay where they are when one takes the other's place.
    void setReserve(const QStringList& texts);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    enum class Lines { One, Two };
    int widthFor(Lines lines) const;
    QSize sizeFor(int width) const;

    QStringList m_reserve;
};
