#pragma once

#include <QByteArray>
#include <QString>

#include <gumbo.h>

#include <functional>
#include <memory_resource>

namespace nookle {

/// A page as browsers take it apart, however broken it is. Scripts count as running.
class HtmlTree final {
public:
    /// `text` is in UTF-8, and stays where it is as long as the tree.
    explicit HtmlTree(const QByteArray& text);
    HtmlTree(const HtmlTree&) = delete;
    HtmlTree& operator=(const HtmlTree&) = delete;

    /// Calls `take` for each HTML element under `root`, in the order of their start tags, except for those in
    /// templates.
    static void forEach(const GumboNode& root, const std::function<void(const GumboNode&)>& take);

    /// The element of that kind under the root, which every page has.
    [[nodiscard]] const GumboNode* part(GumboTag tag) const;

    [[nodiscard]] const GumboNode& document() const { return *m_output->document; }

    /// Whether the page itself has the start tag of `element`.
    [[nodiscard]] static bool isWritten(const GumboNode& element);

    [[nodiscard]] static bool hasAttribute(const GumboNode& element, const char* name);
    /// Without white space around it.
    [[nodiscard]] static QString attribute(const GumboNode& element, const char* name);
    [[nodiscard]] static QString text(const GumboNode& element);

private:
    /// Given back all at once: the parser's own way of doing so descends as deep as the elements are nested.
    std::pmr::monotonic_buffer_resource m_memory;
    GumboOutput* m_output;
};

} // namespace nookle
