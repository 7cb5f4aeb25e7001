#pragma once

#include <string>

/// What a measurement must not exceed.
struct Promise {
    enum class Kind { AtMost, TimesFloor };
    Kind kind;
    double limit;

    static Promise atMost(double limit) { return {Kind::AtMost, limit}; }
    static Promise timesFloor(double limit) { return {Kind::TimesFloor, limit}; }
};

struct Row {
    std::string what;
    std::string unit;
    double measured = 0.0;
    double floor = 0.0;  ///< 0: there is none
    std::string floorIs; ///< what was measured for the floor, in the same run
    Promise promise;
};

/// The table that ./bench prints, in the order in which the rows came.
namespace Table {

/// A row of the same name takes the earlier one's place.
void add(Row row);
/// With a head that says when and where it was measured; true when every promise is kept.
bool print();

} // namespace Table
