#include "controls/time/TimeFieldAccessible.h"

#include "controls/AccessibleFactory.h"
#include "controls/time/AQTimeValueView.h"
#include "controls/time/TimeField.h"

#include <QAccessibleWidget>
#include <QLineEdit>

namespace {

/// The field stands for the whole editor and bears its name.
class FieldAccessible : public QAccessibleWidget {
public:
    explicit FieldAccessible(TimeField& field) : QAccessibleWidget(&field, QAccessible::SpinBox) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        QAccessibleInterface* text = lineEdit();
        return text && (type == QAccessible::TextInterface ||
                        type == QAccessible::EditableTextInterface)
                   ? text->interface_cast(type)
                   : QAccessibleWidget::interface_cast(type);
    }
    QAccessibleInterface* parent() const override {
        const auto* editor = qobject_cast<const AQValueView*>(widget()->parentWidget());
        QAccessibleInterface* row = editor ? editor->accessibleParent() : nullptr;
        return row ? row : QAccessibleWidget::parent();
    }
    int childCount() const override { return 0; }
    QString text(QAccessible::Text kind) const override {
        if (kind == QAccessible::Value && lineEdit())
            return lineEdit()->text(kind);
        const QString own = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name && own.isEmpty() && widget()->parentWidget()
                   ? widget()->parentWidget()->accessibleName()
                   : own;
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = true;
        return state;
    }

private:
    /// Null while the field is being destroyed.
    QAccessibleInterface* lineEdit() const {
        auto* edit = widget() ? widget()->findChild<QLineEdit*>() : nullptr;
        return QAccessible::queryAccessibleInterface(edit);
    }
};

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

} // namespace

void TimeFieldAccessible::install() {
    AccessibleFactory::install<TimeField, FieldAccessible>();
    AccessibleFactory::install<AQTimeValueView, EditorAccessible>();
}
