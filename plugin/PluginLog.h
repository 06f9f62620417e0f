#ifndef PLUGIN_LOG_H_
#define PLUGIN_LOG_H_

// The log tag of the exported functions and their objects. Integrators filter their device logs by it.
inline constexpr char kPluginLogTag[] = "TarqPlugin(DMR)";

#endif  // PLUGIN_LOG_H_
