// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Contest.h"

#include "KestStyleSheet.h"

#include <QtCore/QRegExp>
#include <QtWidgets/QWidget>

#include <memory>

namespace {

const float Rate = 1.5f;
const int WidgetCount = 1000;
const int Million = 1000000;

QString sheetOfSize(int characters)
{
    const QString sheet = KestStyleSheet::defaultStyleSheet();
    return sheet.repeated(characters / sheet.size() + 1).left(characters);
}

// What the one pass over the sheet replaces: search, cut out, put back, search on.
QString searchAndReplace(const QString &sheet)
{
    QString copy = sheet;
    QRegExp length(QStringLiteral("\\d+px"), Qt::CaseInsensitive, QRegExp::RegExp);
    length.setMinimal(true);
    int start = 0;
    int position = 0;
    while ((position = length.indexIn(copy, start)) != -1) {
        const int digits = length.matchedLength() - 2;
        const QString number = QString::number(qRound(copy.mid(position, digits).toInt() * Rate));
        copy.replace(position, digits, number);
        start = position + number.size() + 1;
    }
    return copy;
}

// One character at a time, as whoever looks at each of them has to go.
__attribute__((optimize("no-tree-vectorize", "no-tree-loop-distribute-patterns"))) QString
copyByCharacter(const QString &sheet)
{
    // With the room that scaling takes: another size may or may not come from fresh pages.
    QString copy(sheet.size() + sheet.size() / 64 + 11, Qt::Uninitialized);
    QChar *to = copy.data();
    for (const QChar c : sheet)
        *to++ = c;
    copy.resize(sheet.size());
    return copy;
}

template <class Function>
Work onSheet(int characters, Function function)
{
    const QString sheet = sheetOfSize(characters);
    return [sheet, function] {
        if (function(sheet).isEmpty())
            qFatal("an empty sheet");
    };
}

Row sheetRow(const QString &name, int characters)
{
    return { name,
             9,
             { { "scaleSheet",
                 [=] {
                     return onSheet(characters, [](const QString &sheet) {
                         return KestStyleSheet::scaleSheet(sheet, Rate);
                     });
                 } },
               { "copy", [=] { return onSheet(characters, copyByCharacter); } },
               { "search and replace", [=] { return onSheet(characters, searchAndReplace); } } } };
}

QString widgetSheet()
{
    return QStringLiteral("QWidget { border: 1px solid gray; padding: 4px; }");
}

std::shared_ptr<QWidget> widgetTree()
{
    auto root = std::make_shared<QWidget>();
    for (int i = 0; i < WidgetCount; ++i) {
        auto *child = new QWidget(root.get());
        child->setStyleSheet(widgetSheet());
    }
    root->resize(400, 300);
    showAndPaint(root.get());
    settle();
    return root;
}

void rescale(QWidget *root)
{
    KestStyleSheet::ChangeObjectSizeAndFontSize(root, double(Rate), double(Rate));
}

Work firstRescale()
{
    const auto root = widgetTree();
    return [root] { rescale(root.get()); };
}

Work sameRescale()
{
    const auto root = widgetTree();
    rescale(root.get());
    return [root] { rescale(root.get()); };
}

// What no rescaling can do without.
Work sheetsAlone()
{
    const auto root = widgetTree();
    const QString sheet = KestStyleSheet::scaleSheet(widgetSheet(), Rate);
    return [root, sheet] {
        const QObjectList children = root->children();
        for (QObject *child : children)
            static_cast<QWidget *>(child)->setStyleSheet(sheet);
    };
}

} // namespace

QVector<Row> sheetRows()
{
    return {
        sheetRow("scaleOneSheet", KestStyleSheet::defaultStyleSheet().size()),
        { "scaleMillion",
          9,
          { sheetRow(QString(), Million).contestants.at(0),
            sheetRow(QString(), Million).contestants.at(1) } },
        { "scaleTenMillion",
          5,
          { sheetRow(QString(), 10 * Million).contestants.at(0),
            sheetRow(QString(), 10 * Million).contestants.at(1) } },
        { "rescale", 5, { { "KestStyleSheet", firstRescale }, { "sheets alone", sheetsAlone } } },
        { "rescaleAgain", 5, { { "same rate", sameRescale }, { "first time", firstRescale } } },
    };
}
