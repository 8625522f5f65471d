#include "platform/sdl/portal.h"

#include <dbus/dbus.h>

#include <cstdlib>
#include <string_view>

namespace {

constexpr int patience = 150;  // milliseconds

struct setting {
    const char* space;
    const char* key;
    // Whether the value asks for little motion.
    bool (*is_wish)(DBusMessageIter& value);
};

template <typename basic>
basic value_read(DBusMessageIter& value, int type) {
    basic read = {};
    if (dbus_message_iter_get_arg_type(&value) == type) {
        dbus_message_iter_get_basic(&value, &read);
    }
    return read;
}

bool is_one(DBusMessageIter& value) {
    return value_read<dbus_uint32_t>(value, DBUS_TYPE_UINT32) == 1;
}

bool is_off(DBusMessageIter& value) {
    return dbus_message_iter_get_arg_type(&value) == DBUS_TYPE_BOOLEAN &&
           value_read<dbus_bool_t>(value, DBUS_TYPE_BOOLEAN) == 0;
}

bool is_no_time(DBusMessageIter& value) {
    const char* text = value_read<const char*>(value, DBUS_TYPE_STRING);
    return text != nullptr && std::string_view(text) == "0";
}

// Of all desktops, of those that share GNOME's, of KDE's.
constexpr setting settings[] = {
    {"org.freedesktop.appearance", "reduced-motion", is_one},
    {"org.gnome.desktop.interface", "enable-animations", is_off},
    {"org.kde.kdeglobals.KDE", "AnimationDurationFactor", is_no_time},
};

// The answer, null for none.
DBusMessage* setting_ask(DBusConnection* bus, const setting& one) {
    DBusMessage* question = dbus_message_new_method_call("org.freedesktop.portal.Desktop",
                                                         "/org/freedesktop/portal/desktop",
                                                         "org.freedesktop.portal.Settings", "Read");
    dbus_message_append_args(question, DBUS_TYPE_STRING, &one.space, DBUS_TYPE_STRING, &one.key,
                             DBUS_TYPE_INVALID);
    DBusMessage* answer =
        dbus_connection_send_with_reply_and_block(bus, question, patience, nullptr);
    dbus_message_unref(question);
    return answer;
}

// The value lies in one variant or in several around each other.
bool answer_is_wish(DBusMessage* answer, const setting& one) {
    DBusMessageIter value;
    if (dbus_message_iter_init(answer, &value) == 0) {
        return false;
    }
    while (dbus_message_iter_get_arg_type(&value) == DBUS_TYPE_VARIANT) {
        DBusMessageIter inside;
        dbus_message_iter_recurse(&value, &inside);
        value = inside;
    }
    return one.is_wish(value);
}

bool is_wished(DBusConnection* bus, const setting& one) {
    DBusMessage* answer = setting_ask(bus, one);
    if (answer == nullptr) {
        return false;
    }
    const bool wished = answer_is_wish(answer, one);
    dbus_message_unref(answer);
    return wished;
}

bool portal_is_there(DBusConnection* bus) {
    return dbus_bus_name_has_owner(bus, "org.freedesktop.portal.Desktop", nullptr) != 0;
}

}  // namespace

bool portal_wants_stillness() {
    if (std::getenv("DBUS_SESSION_BUS_ADDRESS") == nullptr) {
        return false;  // no bus is started for this
    }
    DBusConnection* bus = dbus_bus_get_private(DBUS_BUS_SESSION, nullptr);
    if (bus == nullptr) {
        return false;
    }
    dbus_connection_set_exit_on_disconnect(bus, 0);
    bool wished = false;
    for (const setting& one : settings) {
        wished = wished || (portal_is_there(bus) && is_wished(bus, one));
    }
    dbus_connection_close(bus);
    dbus_connection_unref(bus);
    return wished;
}
