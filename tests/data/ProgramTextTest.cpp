#include "data/ProgramText.h"
#include "data/TypedValue.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace {

using Cases = std::initializer_list<std::array<const char*, 3>>; ///< text, typed, pasted

/// The minute of the day or the percent, or "!" and the fault up to " is no ...".
template <class T>
QString told(const TypedValue<T>& typed) {
    if (!typed.value)
        return u'!' + typed.fault.section(QStringLiteral(" is no "), 0, 0);
    if constexpr (std::is_same_v<T, AQTime>)
        return QString::number(typed.value->minuteOfDay());
    else
        return QString::number(*typed.value * 100.0);
}

TEST(TypedValue, readsTimes) {
    for (const auto& [text, typed, pasted] :
         Cases{{" 8 ", "480", "480"},
               {"830", "510", "510"},
               {"8:5", "485", "!8:5"},
               {"08.30.59", "!08.30.59", "510"},
               {"25:70", "!25:70", "!25:70"},
               {" ", "!The time is missing", "!The time is missing"},
               {"+929", "1439", "!+929"},
               {"\u2212510", "0", "!-510"},
               {"+930", "!+930 leads out of the day, 00:00 to 23:59", "!+930"},
               {"1\n2 3 4 5 6 7 8 9 10 11 12", "!1 2 3 4 5 6 7 8 9 10 11…",
                "!1 2 3 4 5 6 7 8 9 10 11…"}}) {
        EXPECT_EQ(told(typedTime(QString::fromUtf8(text), {8, 30})), QString::fromUtf8(typed));
        EXPECT_EQ(told(pastedTime(QString::fromUtf8(text))), QString::fromUtf8(pasted));
    }
}

TEST(TypedValue, readsPercentages) {
    for (const auto& [text, typed, pasted] : Cases{{"56,5\u00a0%", "56.5", "56.5"},
                                                   {"100.1", "!100.1", "!100.1"},
                                                   {"1e1", "!1e1", "!1e1"},
                                                   {"5 5", "!5 5", "!5 5"},
                                                   {"+10.5", "100", "!+10.5"},
                                                   {"\u221210 %", "80", "!-10 %"}}) {
        EXPECT_EQ(told(typedFraction(QString::fromUtf8(text), 0.9)).toStdString(), typed);
        EXPECT_EQ(told(pastedFraction(QString::fromUtf8(text))).toStdString(), pasted);
    }
}

TEST(ProgramText, keepsTheStoredByteOfEveryFraction) {
    EXPECT_EQ(ProgramText::write({{{{8, 5}, 0.564, 0.8}}}), u"08:05\t80\t56.4\n");
    // Each byte's middle, and both sides of each limit between two bytes.
    std::vector<double> fractions{-1.0, -0.0, 2.0, std::nan("")};
    for (int half = 0; half <= 510; ++half)
        for (const double toward : {0.0, half / 510.0, 1.0})
            fractions.push_back(std::nextafter(half / 510.0, toward));
    for (const double fraction : fractions) {
        const auto points = ProgramText::read(ProgramText::write({{{{}, 0.5, fraction}}})).points;
        ASSERT_EQ(points.size(), 1U) << fraction;
        EXPECT_EQ(byteFromFraction(points[0].brightness), byteFromFraction(fraction)) << fraction;
    }
}

TEST(ProgramText, readsWhatOtherProgramsCopy) {
    const std::vector<AQTimePoint> expected{{{20, 0}, 0.56, 0.8}, {{8, 30}, 1.0, 0.075}};
    for (const char* text :
         {"20:00\t80\t56\t\r\n08:30\t7.5 %\t100\r\n", "20.00;80;56;\r\r830;7,5;100",
          "\n 20:00:00   80 % 56 %\n08:30 7,5\u00a0% 100\n \t \n"})
        EXPECT_EQ(ProgramText::read(QString::fromUtf8(text)).points, expected) << text;
    const auto [points, faults] = ProgramText::read(
        QStringLiteral("08:30\t80\t56\r\n\r\n25:70\t80\t56\r9:00\t80\n8.30\t1\t1\n11:00\t\t1\n"));
    EXPECT_TRUE(points.empty());
    EXPECT_EQ(faults.join(u'\n'),
              u"Line 3: 25:70 is no time of day\n"
              "Line 4: A time, an intensity and a colour temperature are needed\n"
              "Line 5: 8.30 stands in line 1 already\n"
              "Line 6: The percentage is missing");
    for (const QString& text : {QStringLiteral(" \r\n\t"), QStringLiteral("x\n").repeated(1441),
                                QStringLiteral("8 1 1").leftJustified(ProgramText::maxLength)})
        EXPECT_EQ(ProgramText::read(text).faults.size(), 1);
}

} // namespace
