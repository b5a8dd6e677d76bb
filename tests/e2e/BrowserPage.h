#pragma once

#include <QByteArray>
#include <QColor>
#include <QPoint>
#include <QString>

namespace nookle::e2e {

class WebServer;

/// The page that the tests of browsers drag from and to. It reports to its server: where the pointer is over it
/// ("/pointer", as "X Y"), that something is being dragged from it ("/dragging"), what its field holds ("/typed"), and
/// the name and the content of a file that its upload got ("/name", "/uploaded").
namespace browserPage {

// Where things stand on the page.
inline constexpr QPoint picture(100, 100);
inline constexpr QPoint link(60, 220);
/// These are selected once the pointer is over them.
inline constexpr QPoint words(80, 290);
inline constexpr QPoint field(150, 380);
inline constexpr QPoint upload(120, 490);
/// What is dragged from here is the choice of a script.
inline constexpr QPoint script(500, 100);
/// Nothing is here.
inline constexpr QPoint empty(600, 450);

inline constexpr const char* pictureName = "green square.png";
inline constexpr const char* linkTitle = "A link to some\xc3\xb6where";
inline constexpr const char* selectedWords = "Words, and \xe2\x82\xac 5";
/// The address of the link on the server.
[[nodiscard]] QString linkPath();

[[nodiscard]] QByteArray html();
/// The picture on the page.
[[nodiscard]] QByteArray picturePng();
[[nodiscard]] QByteArray squarePng(int side, const QColor& color);

/// Has a server show the page at "/".
void serve(WebServer& server);

} // namespace browserPage

} // namespace nookle::e2e
