// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Theme.h"

#include "KestStyleSheet.h"

#include <QtCore/QFile>
#include <QtGui/QFont>
#include <QtGui/QFontInfo>
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

// The application's as it was before any theme.
const QFont &plainFont()
{
    static const QFont font = QApplication::font();
    return font;
}

bool unreadable = false;

void noteUnreadable(QtMsgType, const QMessageLogContext &, const QString &message)
{
    unreadable = unreadable || message.startsWith(QLatin1String("Could not parse"));
}

} // namespace

QList<Theme> Theme::all()
{
    return {
        { QStringLiteral("Default"), KestStyleSheet::defaultStyleSheet() },
        { QStringLiteral("Tool"), embeddedSheet("tool.css") },
        { QStringLiteral("Kest blue"), embeddedSheet("kest-blue.css") },
    };
}

QList<Theme> Theme::sheets()
{
    const QString light = QStringLiteral("default-light.css");
    const QString own = QStringLiteral("sw-light.css");
    return {
        { light + QStringLiteral(" + ") + own, KestStyleSheet::defaultStyleSheet() },
        { light, embeddedSheet("default-light.css") },
        { own, embeddedSheet("sw-light.css") },
        { QStringLiteral("tool.css"), embeddedSheet("tool.css") },
        { QStringLiteral("kest-blue.css"), embeddedSheet("kest-blue.css") },
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
    Theme theme { files.constFirst(), QString() };
    for (const QString &file : files)
        theme.sheet += textOf(file);
    return theme;
}

// Qt itself is asked, which tells by its messages only.
bool Theme::canRead(const QString &sheet)
{
    unreadable = false;
    const QtMessageHandler handler = qInstallMessageHandler(noteUnreadable);
    QWidget reader;
    // A widget's own sheet, unlike the application's, may be declarations alone; not behind a rule.
    reader.setStyleSheet(QStringLiteral("* { }") + sheet);
    reader.ensurePolished();
    qInstallMessageHandler(handler);
    return !unreadable;
}

double Theme::plainPointSize()
{
    const double points = plainFont().pointSizeF();
    return points > 0 ? points : QFontInfo(plainFont()).pointSizeF();
}

void Theme::apply(double rate, double pointSize) const
{
    QFont font = plainFont();
    font.setPointSizeF(pointSize * rate);
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
