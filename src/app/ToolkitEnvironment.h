#pragma once

#include "BackendChoice.h"

#include <QByteArray>

#include <optional>

namespace nookle {

/// What the toolkit does not read by itself of the desktop's settings for the size of windows, or must not.
struct ToolkitScale {
    /// How many times larger windows are to be than the toolkit would make them.
    int windows = 1;
    /// In dots an inch, where the toolkit must not take the one of the desktop.
    std::optional<int> resolution = {};
};

/// What the toolkit reads in the environment when it connects to the display, while this object exists. Programs that
/// are started later must not inherit it.
class ToolkitEnvironment final {
public:
    /// The user's own variables for the scale come first.
    explicit ToolkitEnvironment(const BackendChoice& choice, const ToolkitScale& scale = {});
    ~ToolkitEnvironment();
    ToolkitEnvironment(const ToolkitEnvironment&) = delete;
    ToolkitEnvironment& operator=(const ToolkitEnvironment&) = delete;

private:
    /// A variable with what it was before.
    class Variable final {
    public:
        /// Without a value it is not set.
        Variable(const char* name, const std::optional<QByteArray>& value);
        ~Variable();
        Variable(const Variable&) = delete;
        Variable& operator=(const Variable&) = delete;

    private:
        const char* m_name;
        std::optional<QByteArray> m_previous;
    };

    Variable m_platform;
    Variable m_reconnect;
    std::optional<Variable> m_gtkBackend;
    std::optional<Variable> m_gtkScale;
    std::optional<Variable> m_scale;
    std::optional<Variable> m_resolution;
};

} // namespace nookle
