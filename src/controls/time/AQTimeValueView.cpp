#include "controls/time/AQTimeValueView.h"

#include "controls/time/TimeField.h"

#include <QHBoxLayout>
#include <QPointer>

AQTimeValueView::AQTimeValueView(std::unique_ptr<const TimeFormat> format, QWidget* parent)
    : AQValueView(parent),
      m_field(new TimeField(
          std::move(format), [this](const AQTime& time) { return takeFromPerson(time); }, this)) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_field);
    setFocusProxy(m_field);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(m_field, &TimeField::focusArrived, this, [this] { focusArrived(); });
    connect(m_field, &TimeField::focusLeft, this,
            [this](Qt::FocusReason reason) { focusLeft(reason); });
    connect(m_field, &TimeField::refused, this, &AQTimeValueView::refused);
}

AQTimeValueView::~AQTimeValueView() {
    // QWidget's destructor would delete it too late: the field, losing its focus, would commit its
    // draft to an object that is no value view any more.
    delete m_field;
}

const AQTime& AQTimeValueView::time() const {
    return m_field->time();
}

void AQTimeValueView::setTime(const AQTime& time) {
    m_field->setTime(m_field->format().limited(time));
}

QVariant AQTimeValueView::objectValue() const {
    return QVariant::fromValue(time());
}

void AQTimeValueView::setObjectValue(const QVariant& object) {
    if (object.metaType() == QMetaType::fromType<AQTime>())
        setTime(object.value<AQTime>());
}

void AQTimeValueView::setRefusalText(const QString& text) {
    m_field->setRefusalText(text);
}

void AQTimeValueView::setLeavesDelete(bool leaves) {
    m_field->setLeavesDelete(leaves);
}

bool AQTimeValueView::isTyped() const {
    return m_field->isTyped();
}

bool AQTimeValueView::showsRefusal() const {
    return m_field->showsRefusal();
}

bool AQTimeValueView::takeFromPerson(const AQTime& time) {
    const QVariant object = QVariant::fromValue(time);
    if (!askDelegate(object))
        return false;
    const QPointer<AQTimeValueView> alive(this);
    m_field->setTime(time);
    reportChange(object);
    if (alive)
        Q_EMIT timeChanged(time);
    return true;
}
