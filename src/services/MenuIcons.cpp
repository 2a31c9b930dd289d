#include "MenuIcons.h"

#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QPainter>
#include <QPalette>
#include <QPointer>
#include <QSvgRenderer>

namespace {

const QHash<int, const char*>& pictures() {
    static const QHash<int, const char*> names = {{0, "help"},
                                                  {1, "search"},
                                                  {2, "columns"},
                                                  {42, "columns-back"},
                                                  {3, "send"},
                                                  {4, "copy"},
                                                  {5, "sheet"},
                                                  {6, "text"},
                                                  {7, "web"},
                                                  {8, "copy"},
                                                  {9, "paste"},
                                                  {10, "delete"},
                                                  {11, "filter"},
                                                  {12, "settings"},
                                                  {13, "print"},
                                                  {40, "print"},
                                                  {41, "sort"},
                                                  {500, "fit"},
                                                  {14, "send"},
                                                  {kImageCopyCell, "copy"},
                                                  {kImagePasteCell, "paste"},
                                                  {kImageUndo, "undo"},
                                                  {kImageRedo, "redo"},
                                                  {kImagePreview, "preview"},
                                                  {kImageCarry, "carry"},
                                                  {kImageUsage, "usage"},
                                                  {kImageDetail, "detail"},
                                                  {kImageTaxCheck, "chart"},
                                                  {kImageRecord, "record"}};
    return names;
}

QByteArray drawing(const QColor& ink) {
    QFile file(QStringLiteral(":/icons/menu.svg"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().replace("#303030", ink.name().toLatin1())
                                          : QByteArray();
}

}  // namespace

QIcon Menu_Icon(int image) {
    constexpr int kSize = 48;  // pixels, so that it stays sharp on a screen of twice the density
    static QHash<std::pair<int, QRgb>, QIcon> made;
    const char* name = pictures().value(image);
    if (!name)
        return {};
    const QColor ink = QGuiApplication::palette().color(QPalette::WindowText);
    QIcon& icon = made[{image, ink.rgb()}];
    if (icon.isNull()) {
        static QRgb drawn = 0;
        static QPointer<QSvgRenderer> renderer;
        if (!renderer)
            renderer = new QSvgRenderer(qApp);
        if (!renderer->isValid() || drawn != ink.rgb())
            renderer->load(drawing(ink));
        drawn = ink.rgb();
        QPixmap picture(kSize, kSize);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        renderer->render(&painter, QLatin1String(name), QRectF(0, 0, kSize, kSize));
        icon = QIcon(picture);
    }
    return icon;
}
