#include "ScreenshotNames.h"

#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <glib.h>

namespace nookle {

namespace {

/// The names without extension. Tools add a number if the name exists already.
[[nodiscard]] const QStringList& patterns()
{
    static const QStringList known{
        // The screenshot tools of Plasma and of Xfce
        QStringLiteral("Screenshot_\\d{8}_\\d{6}"),
        QStringLiteral("Screenshot_\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d-\\d\\d"),
        // Flameshot
        QStringLiteral("\\d{4}-\\d\\d-\\d\\d_\\d\\d-\\d\\d(-\\d\\d)?"),
        // ksnip
        QStringLiteral("ksnip_\\d{8}-\\d{6}"),
        // grim
        QStringLiteral("\\d{8}_\\d\\dh\\d\\dm\\d\\ds_grim"),
        // scrot
        QStringLiteral("\\d{4}-\\d\\d-\\d\\d-\\d{6}_\\d+x\\d+_scrot"),
    };
    return known;
}

[[nodiscard]] QRegularExpression makeExpression()
{
    const QString number = QStringLiteral("([-_ ]?\\(?\\d{1,4}\\)?)?");
    const QString ending = QStringLiteral("\\.(png|jpe?g|webp|bmp|avif|jxl|ppm|qoi)");
    return QRegularExpression(QString(QStringLiteral("\\A(") + patterns().join(QLatin1Char('|')) + QLatin1Char(')')
                                      + number + ending + QStringLiteral("\\z")),
                              QRegularExpression::CaseInsensitiveOption);
}

} // namespace

QString translatedScreenshot()
{
    return QString::fromUtf8(g_dgettext("xfce4-screenshooter", "Screenshot"));
}

bool isScreenshotName(const QByteArray& name, const QString& word)
{
    static const QRegularExpression expression = makeExpression();
    QString english = QString::fromUtf8(name);
    if (english.startsWith(word + QLatin1Char('_')))
        english.replace(0, word.size(), QStringLiteral("Screenshot"));
    return expression.match(english).hasMatch();
}

} // namespace nookle
