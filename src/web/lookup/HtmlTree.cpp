#include "HtmlTree.h"

#include <iterator>
#include <vector>

namespace nookle {

namespace {

void* allocate(void* memory, std::size_t size)
{
    return static_cast<std::pmr::memory_resource*>(memory)->allocate(size);
}

void keep(void* /*memory*/, void* /*bytes*/) {}

[[nodiscard]] bool isElement(const GumboNode& node)
{
    return node.type == GUMBO_NODE_ELEMENT;
}

[[nodiscard]] const GumboVector& children(const GumboNode& node)
{
    return node.type == GUMBO_NODE_DOCUMENT ? node.v.document.children : node.v.element.children;
}

[[nodiscard]] const GumboNode& child(const GumboVector& nodes, unsigned index)
{
    return *static_cast<const GumboNode*>(nodes.data[index]);
}

} // namespace

HtmlTree::HtmlTree(const QByteArray& text)
{
    GumboOptions options = kGumboDefaultOptions;
    options.allocator = allocate;
    options.deallocator = keep;
    options.userdata = &m_memory;
    options.max_errors = 0;
    m_output = ::gumbo_parse_with_options(&options, text.constData(), std::size_t(text.size()));
}

void HtmlTree::forEach(const GumboNode& root, const std::function<void(const GumboNode&)>& take)
{
    std::vector<const GumboNode*> waiting{ &root };
    while (!waiting.empty()) {
        const GumboNode& node = *waiting.back();
        waiting.pop_back();
        if (isElement(node) && node.v.element.tag_namespace != GUMBO_NAMESPACE_HTML)
            continue;
        if (isElement(node))
            take(node);
        else if (node.type != GUMBO_NODE_DOCUMENT)
            continue;
        for (unsigned i = children(node).length; i > 0; --i)
            waiting.push_back(&child(children(node), i - 1));
    }
}

const GumboNode* HtmlTree::part(GumboTag tag) const
{
    const GumboVector& parts = children(*m_output->root);
    for (unsigned i = 0; i < parts.length; ++i) {
        const GumboNode& part = child(parts, i);
        if (isElement(part) && part.v.element.tag == tag)
            return &part;
    }
    return nullptr;
}

bool HtmlTree::isWritten(const GumboNode& element)
{
    return (element.parse_flags & GUMBO_INSERTION_BY_PARSER) == 0;
}

bool HtmlTree::hasAttribute(const GumboNode& element, const char* name)
{
    return ::gumbo_get_attribute(&element.v.element.attributes, name) != nullptr;
}

QString HtmlTree::attribute(const GumboNode& element, const char* name)
{
    const GumboAttribute* const found = ::gumbo_get_attribute(&element.v.element.attributes, name);
    return found ? QString::fromUtf8(found->value).trimmed() : QString();
}

QString HtmlTree::text(const GumboNode& element)
{
    QString text;
    for (unsigned i = 0; i < children(element).length; ++i) {
        const GumboNode& part = child(children(element), i);
        if (part.type == GUMBO_NODE_TEXT || part.type == GUMBO_NODE_WHITESPACE)
            text += QString::fromUtf8(part.v.text.text);
    }
    return text;
}

} // namespace nookle
