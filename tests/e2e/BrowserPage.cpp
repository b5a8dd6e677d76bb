#include "BrowserPage.h"

#include "Browser.h"
#include "WebServer.h"

#include <QBuffer>
#include <QImage>

namespace nookle::e2e::browserPage {

QString linkPath()
{
    return QStringLiteral("/linked?a=1&b=%C3%BC");
}

QByteArray squarePng(int side, const QColor& color)
{
    QImage image(side, side, QImage::Format_RGB32);
    image.fill(color);
    QByteArray png;
    QBuffer buffer(&png);
    return buffer.open(QIODevice::WriteOnly) && image.save(&buffer, "PNG") ? png : QByteArray();
}

QByteArray picturePng()
{
    return squarePng(80, QColor(0x20, 0x80, 0x40));
}

QByteArray html()
{
    return "<!doctype html><meta charset=utf-8><title>The test's page</title><body style='font:16px sans-serif'>"
           "<div style='"
        + Browser::marker()
        + "'></div>"
          "<img src='/pictures/green%20square.png' style='position:absolute;left:60px;top:60px'>"
          "<a href='/linked?a=1&amp;b=%C3%BC' style='position:absolute;left:40px;top:208px;font-size:24px'>"
        + linkTitle
        + "</a>"
          "<p id=words onmouseenter=getSelection().selectAllChildren(this) "
          "style='position:absolute;left:40px;top:260px;font-size:24px'>"
        + selectedWords
        + "</p>"
          "<textarea style='position:absolute;left:40px;top:340px;width:300px;height:80px' "
          "oninput=\"fetch('/typed',{method:'POST',body:this.value})\"></textarea>"
          "<input type=file style='position:absolute;left:40px;top:460px;width:300px;height:60px;background:#eee' "
          "onchange=\"const f=this.files[0];fetch('/name',{method:'POST',body:f.name+' '+f.type})"
          ".then(()=>fetch('/uploaded',{method:'POST',body:f}))\">"
          "<div draggable=true style='position:absolute;left:440px;top:60px;width:120px;height:80px;background:#ccc' "
          "ondragstart=\"const d=event.dataTransfer;d.setData('text/uri-list','file:///etc/passwd');"
          "d.setData('text/plain','Words of a script')\"></div>"
          "<script>onmousemove=e=>fetch('/pointer',{method:'POST',body:e.clientX+' '+e.clientY});"
          "ondrag=e=>fetch('/dragging',{method:'POST',body:'yes'});"
          "ondragover=e=>fetch('/over',{method:'POST',body:'yes'})"
          "</script>";
}

void serve(WebServer& server)
{
    server.serve(QStringLiteral("/"), "text/html", html());
    server.serve(QStringLiteral("/pictures/green%20square.png"), "image/png", picturePng());
    for (const char* path : { "/pointer", "/dragging", "/over", "/typed", "/name", "/uploaded" })
        server.serve(QLatin1String(path), "text/plain", "thanks");
}

} // namespace nookle::e2e::browserPage
