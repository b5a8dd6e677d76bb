#include "Motion.h"

#include <QApplication>
#include <QStyle>

namespace nookle {

// The program sets the effect by what the desktop says. Some styles know their desktop's setting themselves.
bool wantsMotion()
{
    return QApplication::isEffectEnabled(Qt::UI_General)
        && QApplication::style()->styleHint(QStyle::SH_Widget_Animation_Duration) > 0;
}

} // namespace nookle
