#include "journeys/Journey.h"

#include <atspi/atspi.h>

#include <QFile>

#include <algorithm>

namespace {

/// What the programs of the desktop tell assistive programs: "showing notification CONNECTED".
class Events {
public:
    Events() : m_listener(atspi_event_listener_new(record, &m_heard, nullptr)) {
        for (const char* state : {"showing", "selected", "focused"})
            atspi_event_listener_register(
                m_listener, (std::string("object:state-changed:") + state).c_str(), nullptr);
    }
    ~Events() { g_object_unref(m_listener); }
    Events(const Events&) = delete;
    Events& operator=(const Events&) = delete;

    void expect(const std::string& event) const {
        EXPECT_TRUE(Journey::waitUntil([&] {
            while (g_main_context_iteration(nullptr, FALSE)) {
            }
            return std::ranges::count(m_heard, event) > 0;
        })) << event
            << " is not among:\n"
            << testing::PrintToString(m_heard);
    }

private:
    static void record(AtspiEvent* event, void* heard) {
        const UiElement source(ATSPI_ACCESSIBLE(g_object_ref(event->source)));
        const std::string type = event->type;
        if (event->detail1 == 1)
            static_cast<std::vector<std::string>*>(heard)->push_back(
                type.substr(type.rfind(':') + 1) + ' ' + source.role() + ' ' + source.name());
        g_boxed_free(ATSPI_TYPE_EVENT, event);
    }

    std::vector<std::string> m_heard;
    AtspiEventListener* m_listener;
};

TEST(AccessibilityJourneys, rowsAreReadAndWhatHappensIsTold) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("lamp.sq")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<settings><timeline>");
    for (int minute = 0; minute < 1000; minute += 10)
        file.write("<point><time>" + QByteArray::number(minute) +
                   "</time><intensity>51</intensity><color>255</color></point>");
    file.write("</timeline></settings>");
    file.close();
    const Events events;
    const Journey journey({}, {file.fileName()});
    events.expect("showing notification CONNECTED");

    const auto durations = journey.front().findAll(
        [](const UiElement& element) { return element.name() == "Task light duration"; });
    EXPECT_EQ(durations.size(), 1U);

    // More rows than exist as widgets; all are kept and read later.
    const auto rows = journey.find("list", "Light program points").children();
    ASSERT_EQ(rows.size(), 100U);
    EXPECT_EQ(rows[49].name(), "Point 50 of 100, 08:10");
    const auto editors = rows[59].children();
    ASSERT_EQ(editors.size(), 3U);
    EXPECT_EQ(editors[0].role() + ' ' + editors[0].name() + ' ' + editors[0].text(),
              "spin button Point 60, 09:50, Time 09:50");
    EXPECT_TRUE(editors[0].children().empty());
    EXPECT_EQ(editors[2].name() + ' ' + std::to_string(qRound(editors[2].value())),
              "Point 60, 09:50, Intensity 20");
    editors[2].setValue(33);
    events.expect("selected list item Point 60 of 100, 09:50");
    expectSoon([&] { return rows[59].isSelected() ? qRound(editors[2].value()) : -1; }, 33);

    ASSERT_TRUE(journey.chooseMenu("Undo Intensity at 09:50"));
    expectSoon([&] { return qRound(editors[2].value()); }, 20);
    ASSERT_TRUE(journey.press("Delete point"));
    events.expect("selected list item Point 60 of 99, 10:00");
    events.expect("selected list item Point 60 of 99, 10:00, intensity 20 %, "
                  "colour temperature 100 %");
    expectSoon([&] { return rows[60].name(); }, "Point 60 of 99, 10:00");

    ASSERT_TRUE(journey.chooseMenu("Save"));
    events.expect("showing notification Saved lamp.sq");
    ASSERT_TRUE(journey.press("Load from device"));
    events.expect("showing notification the lamp runs this program");
}

} // namespace
