#pragma once

namespace nookle {

/// One visitor made of several lambdas: std::visit(overloaded{ [](const A&) {…}, [](const B&) {…} }, variant).
template <class... Cases> struct overloaded : Cases... {
    using Cases::operator()...;
};

template <class... Cases> overloaded(Cases...) -> overloaded<Cases...>;

} // namespace nookle
