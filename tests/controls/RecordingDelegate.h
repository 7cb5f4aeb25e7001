#pragma once

#include "controls/AQValueDelegate.h"

#include <functional>
#include <vector>

/// Keeps what value views report, and answers as `verdict` says.
class RecordingDelegate : public AQValueDelegate {
public:
    std::vector<QVariant> changes;
    std::vector<QVariant> asked;
    std::vector<const AQValueView*> focused;
    std::function<bool(const QVariant&)> verdict = [](const QVariant&) { return true; };

    void aqValueDidChange(AQValueView& /*view*/, const QVariant& value) override {
        changes.push_back(value);
    }
    bool aqValueShouldChange(AQValueView& /*view*/, const QVariant& value) override {
        asked.push_back(value);
        return verdict(value);
    }
    void aqGotFocus(AQValueView& view) override { focused.push_back(&view); }
};
