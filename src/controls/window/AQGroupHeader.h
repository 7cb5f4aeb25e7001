#pragma once

#include <QWidget>

class AQHelpButton;
class QLabel;

/// The heading of a group of controls: its title, a thin rule to the right edge, and on request a
/// help button at the end.
class AQGroupHeader : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(bool helpAvailable READ isHelpAvailable WRITE setHelpAvailable)

public:
    explicit AQGroupHeader(QWidget* parent = nullptr);

    QString title() const;
    void setTitle(const QString& title);

    /// Whether the help button is shown; false by default.
    bool isHelpAvailable() const;
    void setHelpAvailable(bool available);
    /// Owned by the header.
    AQHelpButton* helpButton() const { return m_helpButton; }

Q_SIGNALS:
    /// The help button was pressed.
    void helpRequested();

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void styleTitle();

    QLabel* m_title;
    AQHelpButton* m_helpButton;
};
