#include "Table.h"

#include <QDateTime>
#include <QSysInfo>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <thread>
#include <vector>

namespace {

std::vector<Row>& rows() {
    static std::vector<Row> rows;
    return rows;
}

std::string processorName() {
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("model name"))
            return line.substr(line.find(": ") + 2);
    return "unknown processor";
}

std::string load() {
    std::ifstream file("/proc/loadavg");
    std::string one;
    std::string five;
    file >> one >> five;
    return one + " in the last minute, " + five + " in five";
}

std::string number(double value) {
    const int digits = value >= 1000.0 ? 0 : value >= 100.0 ? 1 : value >= 10.0 ? 2 : 3;
    std::string text(32, '\0');
    const bool isWhole = value == static_cast<double>(static_cast<long long>(value));
    const int length = std::snprintf(text.data(), text.size(), "%.*f", isWhole ? 0 : digits, value);
    text.resize(static_cast<std::size_t>(length));
    return text;
}

double limitOf(const Row& row) {
    return row.promise.kind == Promise::Kind::TimesFloor ? row.promise.limit * row.floor
                                                         : row.promise.limit;
}

bool isKept(const Row& row) {
    return row.measured <= limitOf(row);
}

std::string promiseText(const Row& row) {
    const bool isTimesFloor = row.promise.kind == Promise::Kind::TimesFloor;
    return "<= " + number(row.promise.limit) + " " + (isTimesFloor ? "x floor" : row.unit);
}

void printRow(const Row& row) {
    const bool hasFloor = row.floor > 0.0;
    const std::string floor = hasFloor ? number(row.floor) + " " + row.unit : "-";
    const std::string ratio = hasFloor ? number(row.measured / row.floor) : "-";
    std::printf("%-57s %10s %10s %6s  %-16s %-7s %s\n", row.what.c_str(),
                (number(row.measured) + " " + row.unit).c_str(), floor.c_str(), ratio.c_str(),
                promiseText(row).c_str(), isKept(row) ? "kept" : "MISSED", row.floorIs.c_str());
}

} // namespace

void Table::add(Row row) {
    const auto same = std::ranges::find(rows(), row.what, &Row::what);
    if (same != rows().end())
        *same = std::move(row);
    else
        rows().push_back(std::move(row));
}

bool Table::print() {
    std::printf("\n%s, %s, %u cores, %s, Qt %s\nload: %s\n\n",
                qPrintable(QDateTime::currentDateTime().toString(Qt::ISODate)),
                processorName().c_str(), std::thread::hardware_concurrency(),
                qPrintable(QSysInfo::prettyProductName()), qVersion(), load().c_str());
    std::printf("%-57s %10s %10s %6s  %-16s %-7s %s\n", "", "measured", "floor", "ratio", "promise",
                "", "the floor is");
    std::ranges::for_each(rows(), printRow);
    return std::ranges::all_of(rows(), isKept);
}
