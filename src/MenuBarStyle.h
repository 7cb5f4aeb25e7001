#pragma once

#include <QProxyStyle>

/// The application's style as it is, but that the arrow of a menu bar too narrow for its titles is
/// drawn. Styles read it from a picture when the menu bar is made, and with its first picture Qt
/// loads every image plugin there is: a twentieth of a start.
class MenuBarStyle : public QProxyStyle {
    Q_OBJECT

public:
    /// Needs the application object.
    MenuBarStyle();

    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override;
};
