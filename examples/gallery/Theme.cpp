// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Theme.h"

#include "KestStyleSheet.h"

#include <QtCore/QFile>
#include <QtGui/QFont>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>

namespace {

QString textOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString embeddedSheet(const char *name)
{
    return textOf(QStringLiteral(":/stylesheet/Resources/stylesheet/") + QLatin1String(name));
}

} // namespace

QList<Theme> Theme::all()
{
    return {
        { QStringLiteral("Default"), KestStyleSheet::defaultStyleSheet(), false },
        { QStringLiteral("Tool"), embeddedSheet("tool.css"), true },
        { QStringLiteral("Kest blue"), embeddedSheet("kest-blue.css"), true },
    };
}

Theme Theme::named(const QString &name)
{
    for (const Theme &theme : all()) {
        if (theme.name.compare(name, Qt::CaseInsensitive) == 0)
            return theme;
    }
    return all().constFirst();
}

Theme Theme::fromFiles(const QStringList &files)
{
    Theme theme { files.constFirst(), QString(), false };
    for (const QString &file : files)
        theme.sheet += textOf(file);
    return theme;
}

void Theme::apply(double rate) const
{
    static const QFont unscaled = QApplication::font();
    QFont font = unscaled;
    font.setPointSizeF(font.pointSizeF() * rate);
    qApp->setStyleSheet(QString());
    QApplication::setFont(font);
    // The parts of combo boxes, spin boxes and tables keep the font that they had under a sheet.
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (qobject_cast<QLineEdit *>(widget) || qobject_cast<QHeaderView *>(widget)
            || qobject_cast<QHeaderView *>(widget->parentWidget())) {
            widget->setFont(font);
        }
    }
    qApp->setStyleSheet(KestStyleSheet::scaleSheet(sheet, float(rate)));
}
