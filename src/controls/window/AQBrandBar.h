#pragma once

#include <QWidget>

/// The strip along the window's top edge with the word mark at its left.
///
/// What stands at its right comes from the window: any layout set on the bar gets the room beside
/// the word mark.
class AQBrandBar : public QWidget {
    Q_OBJECT

public:
    explicit AQBrandBar(QWidget* parent = nullptr);

    /// Adds `widget` at the right end, after those added before; makes the layout if there is none.
    void addTrailingWidget(QWidget* widget);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    QFont wordFont() const;
    void reserveWordMark();
};
