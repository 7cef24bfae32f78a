// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestStyleSheet.h"

#include <QtCore/QRegExp>
#include <QtTest/QTest>

namespace {

const float Rate = 1.5f;

// What the one pass over the sheet replaces: search, cut out, put back, search on.
QString searchAndReplace(const QString &sheet, float rate)
{
    QString copy = sheet;
    QRegExp length(QStringLiteral("\\d+px"), Qt::CaseInsensitive, QRegExp::RegExp);
    length.setMinimal(true);
    int start = 0;
    int position = 0;
    while ((position = length.indexIn(copy, start)) != -1) {
        const int digits = length.matchedLength() - 2;
        const QString number = QString::number(qRound(copy.mid(position, digits).toInt() * rate));
        copy.replace(position, digits, number);
        start = position + number.size() + 1;
    }
    return copy;
}

QString sheetOfSize(int characters)
{
    const QString sheet = KestStyleSheet::defaultStyleSheet();
    return sheet.repeated(characters / sheet.size() + 1).left(characters);
}

} // namespace

class bench_ScaleSheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void defaultSheetTimes100_data();
    void defaultSheetTimes100();
    void growingSheet_data();
    void growingSheet();
};

void bench_ScaleSheet::initTestCase()
{
    const QString sheet = KestStyleSheet::defaultStyleSheet();
    QVERIFY(!sheet.isEmpty());
    QCOMPARE(KestStyleSheet::scaleSheet(sheet, Rate), searchAndReplace(sheet, Rate));
}

void bench_ScaleSheet::defaultSheetTimes100_data()
{
    QTest::addColumn<bool>("onePass");
    QTest::newRow("search and replace") << false;
    QTest::newRow("scaleSheet") << true;
}

void bench_ScaleSheet::defaultSheetTimes100()
{
    QFETCH(bool, onePass);
    const QString sheet = KestStyleSheet::defaultStyleSheet().repeated(100);
    QString result;
    QBENCHMARK
    {
        result = onePass ? KestStyleSheet::scaleSheet(sheet, Rate) : searchAndReplace(sheet, Rate);
    }
    QVERIFY(!result.isEmpty());
}

void bench_ScaleSheet::growingSheet_data()
{
    QTest::addColumn<int>("characters");
    for (const int megabytes : { 1, 2, 5, 10 })
        QTest::addRow("%d MB", megabytes) << megabytes * 1000000;
}

void bench_ScaleSheet::growingSheet()
{
    QFETCH(int, characters);
    const QString sheet = sheetOfSize(characters);
    QString result;
    QBENCHMARK
    {
        result = KestStyleSheet::scaleSheet(sheet, Rate);
    }
    QVERIFY(result.size() >= characters);
}

QTEST_GUILESS_MAIN(bench_ScaleSheet)
#include "bench_scalesheet.moc"
