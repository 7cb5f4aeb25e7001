#pragma once

#include <QAccessible>

namespace AccessibleFactory {

/// Makes QAccessible meet every `Control` as an `Interface` made for it; any number of times.
template <class Control, class Interface>
void install() {
    QAccessible::installFactory(
        [](const QString& /*className*/, QObject* object) -> QAccessibleInterface* {
            auto* control = qobject_cast<Control*>(object);
            return control ? new Interface(*control) : nullptr;
        });
}

} // namespace AccessibleFactory
