#include "BusLoss.h"

#include <gio/gio.h>

namespace nookle {

namespace {

gboolean keepRunning(GSignalInvocationHint* /*hint*/, guint /*count*/, const GValue* values, gpointer /*data*/)
{
    g_dbus_connection_set_exit_on_close(G_DBUS_CONNECTION(g_value_get_object(values)), FALSE);
    return TRUE;
}

} // namespace

void outliveSessionBus()
{
    // A signal exists once its class has been set up.
    const gpointer connections = g_type_class_ref(G_TYPE_DBUS_CONNECTION);
    // Called before the signal's own handler, which is what ends the program.
    g_signal_add_emission_hook(g_signal_lookup("closed", G_TYPE_DBUS_CONNECTION), 0, keepRunning, nullptr, nullptr);
    g_type_class_unref(connections);
}

} // namespace nookle
