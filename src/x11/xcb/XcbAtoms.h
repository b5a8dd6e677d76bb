#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QStringList>

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <vector>

struct xcb_connection_t;

namespace nookle {

/// The atom of that name; 0 when the connection is broken.
[[nodiscard]] std::uint32_t xcbAtom(xcb_connection_t* connection, const QByteArray& name);

/// A set of atoms by their names. All are requested together; requested one by one, each would cost a round trip.
class XcbAtoms final {
public:
    XcbAtoms(xcb_connection_t* connection, std::initializer_list<const char*> names);

    /// The atom of `name`, which must be one of `names`; 0 when the connection is broken.
    [[nodiscard]] std::uint32_t operator[](QByteArrayView name) const;

private:
    std::map<QByteArray, std::uint32_t, std::less<>> m_atoms;
};

/// The names of atoms, without those that do not exist.
[[nodiscard]] QStringList xcbAtomNames(xcb_connection_t* connection, const std::vector<std::uint32_t>& atoms);

/// The value of a property that is a list of 32-bit numbers; empty when the window does not have it.
[[nodiscard]] std::vector<std::uint32_t> xcbNumbers(xcb_connection_t* connection, std::uint32_t window,
                                                    std::uint32_t property);

} // namespace nookle
