#pragma once

#include <QDate>
#include <QObject>

#include <memory>

class AQDataSource;
class QSocketNotifier;

/// Announces by `dayChanged` that the date is another one, while the document has an acclimation
/// that is not over: at midnight, after a suspend over midnight and when the clock was set.
///
/// Nothing wakes the program meanwhile. A change of the time zone alone is seen by the next
/// `look()`.
class DayWatch : public QObject {
    Q_OBJECT

public:
    /// `data` must outlive this.
    explicit DayWatch(AQDataSource& data, QObject* parent = nullptr);
    ~DayWatch() override;

    /// Looks at the date now.
    void look();

private:
    void restart();
    void wakeAtMidnight(bool isWanted);
    void onWoken();

    AQDataSource& m_data;
    QDate m_day; ///< when last looked
    int m_timer; ///< a descriptor
    std::unique_ptr<QSocketNotifier> m_notifier;
};
