// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Themes.h"

#include "KestStyleSheet.h"

#include <QtCore/QFile>
#include <QtGui/QFont>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>

namespace {

const double PlainDpi = 96;

QFont plainFont()
{
    return QFont(QStringLiteral("DejaVu Sans"), 9);
}

} // namespace

QStringList Themes::names()
{
    return { QStringLiteral("default"), QStringLiteral("tool"), QStringLiteral("kest-blue") };
}

QStringList Themes::files(const QString &name)
{
    if (name == QLatin1String("default"))
        return { QStringLiteral("default-light.css"), QStringLiteral("sw-light.css") };
    return { name + QStringLiteral(".css") };
}

QString Themes::text(const QString &file)
{
    QString folder = qEnvironmentVariable("KEST_SHEETS");
    if (folder.isEmpty())
        folder = QStringLiteral(":/stylesheet/Resources/stylesheet");
    QFile sheet(folder + QLatin1Char('/') + file);
    return sheet.open(QIODevice::ReadOnly) ? QString::fromUtf8(sheet.readAll()) : QString();
}

void Themes::apply(const QString &name, double rate)
{
    static QString last;
    const QString wanted = name + QString::number(rate);
    if (wanted == last && !qApp->styleSheet().isEmpty())
        return;
    last = wanted;
    QString sheet;
    for (const QString &file : files(name))
        sheet += text(file);
    // At a higher resolution points are more pixels already.
    const double dpi = QGuiApplication::primaryScreen()->logicalDotsPerInch();
    QFont font = plainFont();
    font.setPointSizeF(font.pointSizeF() * rate * PlainDpi / dpi);
    QApplication::setFont(font);
    qApp->setStyleSheet(KestStyleSheet::scaleSheet(sheet, float(rate)));
}

void Themes::pinPlatform()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!qEnvironmentVariableIsSet("QT_FONT_DPI"))
        qputenv("QT_FONT_DPI", "96");
}

void Themes::pinLook()
{
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(plainFont());
    QApplication::setCursorFlashTime(0);
    for (const Qt::UIEffect effect : { Qt::UI_AnimateMenu, Qt::UI_FadeMenu, Qt::UI_AnimateCombo,
                                       Qt::UI_AnimateTooltip, Qt::UI_FadeTooltip }) {
        QApplication::setEffectEnabled(effect, false);
    }
}
