#pragma once

#include <QLabel>
#include <QStringList>

/// A text in a narrow place such as the brand bar: one line where there is room, else two, and
/// never cut.
class AQBarLabel : public QLabel {
    Q_OBJECT
    Q_PROPERTY(int longestLine MEMBER m_longestLine WRITE setLongestLine)

public:
    explicit AQBarLabel(QWidget* parent = nullptr);

    /// Keeps the room that each of these texts would take, also while hidden, so that its
    /// neighbours stay where they are when one takes the other's place.
    void setReserve(const QStringList& texts);

    /// A text of no more characters than this always stays on one line. 0 at first.
    void setLongestLine(int characters);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    /// Its neighbours are as high as two lines.
    bool hasHeightForWidth() const override { return false; }

private:
    enum class Lines { One, Two };
    int widthFor(Lines lines) const;
    QSize sizeFor(int width) const;

    QStringList m_reserve;
    int m_longestLine = 0;
};
