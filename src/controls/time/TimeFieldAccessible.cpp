#include "controls/time/TimeFieldAccessible.h"

#include "controls/time/AQTimeValueView.h"
#include "controls/time/TimeField.h"

#include <QLineEdit>

namespace {

/// The editor around a field, which has its name for it and is nothing itself.
class EditorAccessible : public QAccessibleWidget {
public:
    explicit EditorAccessible(QWidget& editor) : QAccessibleWidget(&editor, QAccessible::Client) {}

    QString text(QAccessible::Text /*kind*/) const override { return {}; }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.focusable = false;
        return state;
    }
};

QAccessibleInterface* makeInterface(const QString& /*className*/, QObject* object) {
    if (auto* field = qobject_cast<TimeField*>(object))
        return new TimeFieldAccessible(*field);
    if (auto* editor = qobject_cast<AQTimeValueView*>(object))
        return new EditorAccessible(*editor);
    return nullptr;
}

} // namespace

TimeFieldAccessible::TimeFieldAccessible(TimeField& field)
    : QAccessibleWidget(&field, QAccessible::SpinBox) {}

void TimeFieldAccessible::install() {
    static const bool installed = (QAccessible::installFactory(makeInterface), true);
    Q_UNUSED(installed)
}

QAccessibleInterface* TimeFieldAccessible::lineEdit() const {
    return QAccessible::queryAccessibleInterface(widget()->findChild<QLineEdit*>());
}

void* TimeFieldAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface || type == QAccessible::EditableTextInterface)
        return lineEdit()->interface_cast(type);
    return QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* TimeFieldAccessible::parent() const {
    const auto* editor = qobject_cast<const AQValueView*>(widget()->parentWidget());
    QAccessibleInterface* row = editor ? editor->accessibleParent() : nullptr;
    return row ? row : QAccessibleWidget::parent();
}

QString TimeFieldAccessible::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Value)
        return lineEdit()->text(kind);
    const QString own = QAccessibleWidget::text(kind);
    return kind == QAccessible::Name && own.isEmpty() && widget()->parentWidget()
               ? widget()->parentWidget()->accessibleName()
               : own;
}

QAccessible::State TimeFieldAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = true;
    return state;
}
