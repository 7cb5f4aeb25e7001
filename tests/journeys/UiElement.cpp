#include "journeys/UiElement.h"

#include <dbus/dbus.h>

#include <limits>

namespace {

/// The text of a call that returns an owned string, empty when it fails.
template <class Call>
std::string taken(Call call) {
    GError* error = nullptr;
    gchar* text = call(&error);
    g_clear_error(&error);
    std::string result = text ? text : "";
    g_free(text);
    return result;
}

template <class T>
std::shared_ptr<T> owned(T* object) {
    return {object, [](T* p) {
                if (p)
                    g_object_unref(p);
            }};
}

[[maybe_unused]] const int started = atspi_init();

/// libatspi keeps what it once read and learns of changes from its main context.
void catchUp() {
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
}

} // namespace

UiElement::UiElement(AtspiAccessible* accessible) : m_accessible(owned(accessible)) {}

UiElement UiElement::application(qint64 processId) {
    catchUp();
    const UiElement desktop(atspi_get_desktop(0));
    atspi_accessible_set_cache_mask(desktop.m_accessible.get(), ATSPI_CACHE_NONE);
    for (const UiElement& program : desktop.children()) {
        if (atspi_accessible_get_process_id(program.m_accessible.get(), nullptr) == processId)
            return program;
    }
    return {};
}

std::string UiElement::name() const {
    return taken([&](GError** e) { return atspi_accessible_get_name(m_accessible.get(), e); });
}

std::string UiElement::description() const {
    return taken(
        [&](GError** e) { return atspi_accessible_get_description(m_accessible.get(), e); });
}

std::string UiElement::role() const {
    return taken([&](GError** e) { return atspi_accessible_get_role_name(m_accessible.get(), e); });
}

std::string UiElement::text() const {
    const auto text = owned(atspi_accessible_get_text_iface(m_accessible.get()));
    if (!text)
        return {};
    return taken([&](GError** e) { return atspi_text_get_text(text.get(), 0, -1, e); });
}

bool UiElement::hasState(AtspiStateType state) const {
    if (!m_accessible)
        return false;
    const auto states = owned(atspi_accessible_get_state_set(m_accessible.get()));
    return states && atspi_state_set_contains(states.get(), state);
}

double UiElement::value() const {
    const auto value = owned(atspi_accessible_get_value_iface(m_accessible.get()));
    return value ? atspi_value_get_current_value(value.get(), nullptr)
                 : std::numeric_limits<double>::quiet_NaN();
}

QRect UiElement::screenRect() const {
    const auto component = owned(atspi_accessible_get_component_iface(m_accessible.get()));
    if (!component)
        return {};
    AtspiRect* rect =
        atspi_component_get_extents(component.get(), ATSPI_COORD_TYPE_SCREEN, nullptr);
    if (!rect)
        return {};
    const QRect result(rect->x, rect->y, rect->width, rect->height);
    g_free(rect);
    return result;
}

std::vector<UiElement> UiElement::children() const {
    std::vector<UiElement> result;
    if (!m_accessible)
        return result;
    const int count = atspi_accessible_get_child_count(m_accessible.get(), nullptr);
    for (int i = 0; i < count; ++i) {
        AtspiAccessible* child =
            atspi_accessible_get_child_at_index(m_accessible.get(), i, nullptr);
        if (child)
            result.emplace_back(child);
    }
    return result;
}

std::vector<UiElement> UiElement::findAll(const Matches& matches, Search search) const {
    std::vector<UiElement> result;
    if (m_accessible && (search == Search::Hidden || isShowing()) && matches(*this))
        result.push_back(*this);
    for (const UiElement& child : children()) {
        const auto below = child.findAll(matches, search);
        result.insert(result.end(), below.begin(), below.end());
    }
    return result;
}

UiElement UiElement::find(const Matches& matches, Search search) const {
    if (m_accessible && (search == Search::Hidden || isShowing()) && matches(*this))
        return *this;
    for (const UiElement& child : children()) {
        if (const UiElement found = child.find(matches, search))
            return found;
    }
    return {};
}

UiElement UiElement::find(const std::string& role, const std::string& name) const {
    return find([&](const UiElement& element) {
        return (name.empty() || element.name() == name) && (role.empty() || element.role() == role);
    });
}

// libatspi would wait for the reply, which comes only after a modal dialog has closed.
void UiElement::press() const {
    if (!m_accessible)
        return;
    DBusMessage* message =
        dbus_message_new_method_call(m_accessible->parent.app->bus_name, m_accessible->parent.path,
                                     "org.a11y.atspi.Action", "DoAction");
    dbus_int32_t first = 0;
    dbus_message_append_args(message, DBUS_TYPE_INT32, &first, DBUS_TYPE_INVALID);
    dbus_message_set_no_reply(message, TRUE);
    DBusConnection* bus = atspi_get_a11y_bus();
    dbus_connection_send(bus, message, nullptr);
    dbus_connection_flush(bus);
    dbus_message_unref(message);
}

void UiElement::setValue(double value) const {
    if (const auto slider = owned(atspi_accessible_get_value_iface(m_accessible.get())))
        atspi_value_set_current_value(slider.get(), value, nullptr);
}

void UiElement::setText(const std::string& text) const {
    if (const auto field = owned(atspi_accessible_get_editable_text_iface(m_accessible.get())))
        atspi_editable_text_set_text_contents(field.get(), text.c_str(), nullptr);
}
