#pragma once

#include <QByteArray>
#include <QString>

#include <gumbo.h>

#include <functional>
#include <memory_resource>

namespace nookle {

/// The element tree of an HTML page, parsed as browsers do, however broken the page is.
class HtmlTree final {
public:
    /// `text` is in UTF-8, and must outlive the tree.
    explicit HtmlTree(const QByteArray& text);
    HtmlTree(const HtmlTree&) = delete;
    HtmlTree& operator=(const HtmlTree&) = delete;

    /// Calls `take` for `root` and each HTML element below it, in the order of their start tags. Skips the content of
    /// templates.
    static void forEach(const GumboNode& root, const std::function<void(const GumboNode&)>& take);

    /// The child of the root element with the tag `tag`; null if there is none.
    [[nodiscard]] const GumboNode* part(GumboTag tag) const;

    [[nodiscard]] const GumboNode& document() const { return *m_output->document; }

    /// Whether the start tag of `element` is in the page. If not, the parser has inserted the element.
    [[nodiscard]] static bool isWritten(const GumboNode& element);

    [[nodiscard]] static bool hasAttribute(const GumboNode& element, const char* name);
    /// The value of an attribute, without white space around it; empty if there is none.
    [[nodiscard]] static QString attribute(const GumboNode& element, const char* name);
    [[nodiscard]] static QString text(const GumboNode& element);

private:
    /// Holds the whole tree and frees it at once: the parser's own cleanup recurses as deep as the elements are nested.
    std::pmr::monotonic_buffer_resource m_memory;
    GumboOutput* m_output;
};

} // namespace nookle
