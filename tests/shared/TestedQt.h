// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef TESTEDQT_H
#define TESTEDQT_H

// What the tests have to write in another way for each major version of Qt.

#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtWidgets/QStyleOptionProgressBar>
#include <QtWidgets/QWidget>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

#    include <QtCore/QCoreApplication>
#    include <QtCore/QRegExp>
#    include <QtWidgets/QApplication>
#    include <QtWidgets/QDesktopWidget>

// Virtual functions that are constant in one of them only.
#    define KEST_CONST_IN_QT5 const
#    define KEST_CONST_IN_QT6

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

#else

#    include <QtCore/QRegularExpression>
#    include <QtGui/QGuiApplication>
#    include <QtGui/QScreen>

#    define KEST_CONST_IN_QT5
#    define KEST_CONST_IN_QT6 const

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
        const QRegularExpressionMatch match = m_length.match(sheet, from);
        m_matchedLength = int(match.capturedLength());
        return int(match.capturedStart());
    }
    int matchedLength() const { return m_matchedLength; }

private:
    QRegularExpression m_length { QStringLiteral("\\d+?px"),
                                  QRegularExpression::CaseInsensitiveOption
                                      | QRegularExpression::UseUnicodePropertiesOption };
    int m_matchedLength = -1;
};

#endif

#endif // TESTEDQT_H
