#pragma once

#include <QIcon>
#include <QString>

namespace nookle {

/// The icon theme that the icons of file types come from: the present one, or the one that stands in for it.
[[nodiscard]] QString themeOfFileTypes();

/// The drawing of that name among the file types of an icon theme, if it is one that the toolkit draws wrongly: the
/// shapes that only cut others off it draws as black ones when they do not stand among the definitions, as in newer
/// versions of Adwaita. Null for all others, which the toolkit finds and draws by itself.
[[nodiscard]] QIcon repairedDrawing(const QString& theme, const QString& name);

} // namespace nookle
