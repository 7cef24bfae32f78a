// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// KestStyleSheet::scaleSheet() beside the plain loop that it is the fast form of: every match of an
// expression is replaced in a copy of the sheet, one after the other.

#include "Fuzzer.h"
#include "KestStyleSheet.h"
#include "TestedQt.h"

#include <QtCore/QtMath>

#include <limits>

namespace {

QString scaledNumber(const QString &digits, float rate)
{
    const float scaled = float(digits.toInt()) * rate;
    if (qIsNaN(scaled))
        return QStringLiteral("0");
    const double most = std::numeric_limits<int>::max();
    const double least = std::numeric_limits<int>::min();
    if (double(scaled) >= most)
        return QString::number(std::numeric_limits<int>::max());
    if (double(scaled) <= least)
        return QString::number(std::numeric_limits<int>::min());
    return QString::number(scaled < 0 ? qFloor(double(scaled) + 0.5) : qRound(scaled));
}

QString scaledLiterally(QString sheet, float rate)
{
    if (sheet.isEmpty() || rate == 1.0f)
        return sheet;
    LengthFinder length;
    int from = 0;
    while ((from = length.indexIn(sheet, from)) >= 0) {
        const int digits = length.matchedLength() - 2;
        const QString number = scaledNumber(sheet.mid(from, digits), rate);
        sheet.replace(from, digits, number);
        const int end = from + number.size();
        if (end >= sheet.size() - 1)
            break;
        from = end + 1;
    }
    return sheet;
}

} // namespace

void fuzz(FuzzInput &input)
{
    const auto rate = float(input.number());
    const bool wide = input.flag();
    const QByteArray bytes = input.rest();
    const QString sheet = wide
        ? QString(reinterpret_cast<const QChar *>(bytes.constData()), int(bytes.size() / 2))
        : QString::fromUtf8(bytes);
    const QString scaled = KestStyleSheet::scaleSheet(sheet, rate);
    const QString expected = scaledLiterally(sheet, rate);
    FUZZ_CHECK(scaled == expected,
               QStringLiteral("\"%1\" not \"%2\" of \"%3\" at %4")
                   .arg(scaled, expected, sheet)
                   .arg(double(rate)));
}
