#pragma once

#include "data/Acclimation.h"

#include <QDialog>

class AQDataSource;
class QDateEdit;
class QLabel;
class QPushButton;
class QSpinBox;

/// The dialog about the acclimation of the document, with today's light over the curve while it is
/// open. "OK" makes it so, as one step.
///
/// Modal for its window, and placed below what must stay in sight.
class AcclimationPanel : public QDialog {
    Q_OBJECT

public:
    /// `document` must outlive the panel, and so must `uncovered`, the part of the window in which
    /// the light is watched.
    AcclimationPanel(AQDataSource& document, const QWidget& uncovered, QWidget* parent);

    /// Shows the document's acclimation, or a usual one that begins today.
    void run();

Q_SIGNALS:
    /// Today's light as it would be; none once the panel is closed.
    void ghostChanged(const std::optional<std::vector<AQTimePoint>>& points);
    /// The document is to have this one, or none.
    void chosen(const std::optional<Acclimation>& acclimation);

private:
    void makeFields();
    void makeButtons();
    Acclimation wanted() const;
    void refresh();

    AQDataSource& m_data;
    const QWidget& m_uncovered;
    QSpinBox* m_spinStart;
    QSpinBox* m_spinDays;
    QDateEdit* m_pickerFirstDay;
    QLabel* m_lblToday;
    QPushButton* m_bttnEnd;
};
