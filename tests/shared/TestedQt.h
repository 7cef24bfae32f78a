// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef TESTEDQT_H
#define TESTEDQT_H

// What the tests have to write in another way for each major version of Qt.

#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleOptionProgressBar>
#include <QtWidgets/QWidget>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

#    include <QtCore/QRegExp>
#    include <QtWidgets/QDesktopWidget>

// Virtual functions that are constant in one of them only.
#    define KEST_CONST_IN_QT5 const
#    define KEST_CONST_IN_QT6

// Whether a closed window gets another native one at its next show.
constexpr bool ClosedWindowsAreMadeAnew = false;

// How many bytes the path of a local server's socket may have on Linux.
constexpr int LongestServerName = 107;

// Whether the texts of empty fields are half as opaque as the sheet's color.
constexpr bool PlaceholdersAreFaint = false;

// The type that retrieveData() of mime data is asked for.
using AskedType = QVariant::Type;

inline void useHighDpiPixmaps()
{
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

inline int numberOfScreen(const QWidget *widget)
{
    return QApplication::desktop()->screenNumber(widget);
}

inline bool hasOrientationOfItsOwn(const QStyleOptionProgressBar &option)
{
    return option.orientation != QStyleOptionProgressBar().orientation;
}

// Finds a sheet's lengths, digits in front of "px".
class LengthFinder
{
public:
    LengthFinder() { m_length.setMinimal(true); }
    int indexIn(const QString &sheet, int from) { return m_length.indexIn(sheet, from); }
    int matchedLength() const { return m_length.matchedLength(); }

private:
    QRegExp m_length { QStringLiteral("\\d+px"), Qt::CaseInsensitive };
};

// How much finer than asked for an icon's pixmaps are.
inline qreal finenessOfPixmaps()
{
    return QCoreApplication::testAttribute(Qt::AA_UseHighDpiPixmaps) ? qApp->devicePixelRatio() : 1;
}

// As wide as the height wants it to be, at least.
inline QPixmap scaledToHeight(const QPixmap &pixmap, int height)
{
    return pixmap.scaledToHeight(height, Qt::SmoothTransformation);
}

// Whether the button of an action that has changed on a title bar is gone.
inline bool isGoneByAChange(const QPointer<QWidget> &button)
{
    return button.isNull();
}

#else

#    include <QtCore/QEvent>
#    include <QtGui/QScreen>

#    define KEST_CONST_IN_QT5
#    define KEST_CONST_IN_QT6 const

constexpr bool ClosedWindowsAreMadeAnew = true;

// One is kept for the mark of an abstract socket, whatever the name.
constexpr int LongestServerName = 106;

// Sheets can give them one of their own since Qt 6.5 only.
constexpr bool PlaceholdersAreFaint = true;

using AskedType = QMetaType;

// They always are.
inline void useHighDpiPixmaps()
{ }

inline int numberOfScreen(const QWidget *widget)
{
    return int(QGuiApplication::screens().indexOf(widget->screen()));
}

// The state alone tells.
inline bool hasOrientationOfItsOwn(const QStyleOptionProgressBar &)
{
    return false;
}

class LengthFinder
{
public:
    int indexIn(const QString &sheet, int from)
    {
        for (int end = from; from < sheet.size(); from = end + 1) {
            for (end = from; end < sheet.size() && sheet.at(end).isDigit();)
                ++end;
            m_matchedLength = end + 2 - from;
            if (end > from && !sheet.mid(end, 2).compare(QLatin1String("px"), Qt::CaseInsensitive))
                return from;
        }
        return -1;
    }
    int matchedLength() const { return m_matchedLength; }

private:
    int m_matchedLength = -1;
};

inline qreal finenessOfPixmaps()
{
    return qApp->devicePixelRatio();
}

// QPixmap's own takes the nearest width.
inline QPixmap scaledToHeight(const QPixmap &pixmap, int height)
{
    const int width = (pixmap.width() * height + pixmap.height() - 1) / pixmap.height();
    return pixmap.scaled(width, height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// The action has not told all others by then: it is hidden, and deleted later.
inline bool isGoneByAChange(const QPointer<QWidget> &button)
{
    if (button && !button->isHidden())
        return false;
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return button.isNull();
}

#endif

#endif // TESTEDQT_H
