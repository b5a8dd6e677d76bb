#pragma once

#include "BackendChoice.h"

#include <QByteArray>

#include <optional>

namespace nookle {

/// What the toolkit reads in the environment when it connects to the display, while this object exists. Programs that
/// are started later must not inherit it.
class ToolkitEnvironment final {
public:
    /// `windowScale` is how many times larger windows are to be than the toolkit would make them. The user's own
    /// variables for the same come first.
    explicit ToolkitEnvironment(const BackendChoice& choice, int windowScale = 1);
    ~ToolkitEnvironment();
    ToolkitEnvironment(const ToolkitEnvironment&) = delete;
    ToolkitEnvironment& operator=(const ToolkitEnvironment&) = delete;

private:
    /// A variable with what it was before.
    class Variable final {
    public:
        Variable(const char* name, const QByteArray& value);
        ~Variable();
        Variable(const Variable&) = delete;
        Variable& operator=(const Variable&) = delete;

    private:
        const char* m_name;
        std::optional<QByteArray> m_previous;
    };

    Variable m_platform;
    std::optional<Variable> m_gtkBackend;
    std::optional<Variable> m_scale;
};

} // namespace nookle
