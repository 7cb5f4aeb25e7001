#pragma once

#include "data/AQTimePoint.h"

#include <QDialog>

#include <vector>

class AQDataSource;
class QFormLayout;

/// A dialog about one change of the whole program, which curve and lamp show while it is open and
/// which "OK" makes, as one step.
///
/// Modal for its window, and placed below what must stay in sight.
class ProgramChangePanel : public QDialog {
    Q_OBJECT

public:
    /// Shows the panel as it is at first: without a change.
    void run();

protected:
    /// `document` must outlive the panel, and so must `uncovered`, the part of the window in which
    /// the change is watched.
    ProgramChangePanel(AQDataSource& document, const QWidget& uncovered, QWidget* parent);

    /// For the fields of the change. The first one gets the focus.
    QFormLayout& form() { return *m_form; }
    /// For the fields: the change is another one.
    void refreshPreview();

    /// Sets the fields to no change.
    virtual void reset() = 0;
    virtual std::vector<AQTimePoint> changed(const std::vector<AQTimePoint>& points) const = 0;
    virtual QString stepName() const = 0;

private:
    void onFinished(int result);

    AQDataSource& m_data;
    const QWidget& m_uncovered;
    QFormLayout* m_form;
};
