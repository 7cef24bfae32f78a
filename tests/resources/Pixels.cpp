// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Pixels.h"

#include <QtCore/QHash>
#include <QtCore/QRect>

#include <cmath>

namespace {

// Of a channel. The title bar's grounds under the pointer and under a press differ by 6.
const int OverlookedDifference = 5;

double linear(int channel)
{
    const double share = channel / 255.0;
    return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double luminance(QRgb color)
{
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color))
        + 0.0722 * linear(qBlue(color));
}

bool differs(QRgb a, QRgb b)
{
    return qAbs(qRed(a) - qRed(b)) > OverlookedDifference
        || qAbs(qGreen(a) - qGreen(b)) > OverlookedDifference
        || qAbs(qBlue(a) - qBlue(b)) > OverlookedDifference
        || qAbs(qAlpha(a) - qAlpha(b)) > OverlookedDifference;
}

template <typename Predicate>
int count(const QImage &before, const QImage &after, Predicate predicate)
{
    if (before.size() != after.size()) {
        return qMax(before.width() * before.height(), after.width() * after.height());
    }
    int number = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x)
            number += predicate(before.pixel(x, y), after.pixel(x, y)) ? 1 : 0;
    }
    return number;
}

template <typename Predicate>
QRgb common(const QImage &image, const QRect &part, Predicate counts)
{
    QHash<QRgb, int> numbers;
    QRgb found = 0;
    const QRect inside = part & image.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            const QRgb color = image.pixel(x, y);
            if (counts(x, y) && ++numbers[color] >= numbers.value(found))
                found = color;
        }
    }
    return found;
}

} // namespace

double Pixels::contrast(QRgb a, QRgb b)
{
    const double first = luminance(a);
    const double second = luminance(b);
    return (qMax(first, second) + 0.05) / (qMin(first, second) + 0.05);
}

int Pixels::changed(const QImage &before, const QImage &after)
{
    return count(before, after, differs);
}

int Pixels::changedWithContrast(const QImage &before, const QImage &after, double atLeast)
{
    return count(before, after, [atLeast](QRgb was, QRgb is) {
        return was != is && contrast(was, is) >= atLeast;
    });
}

QRgb Pixels::commonColor(const QImage &image, const QRect &part)
{
    return common(image, part, [](int, int) { return true; });
}

QRgb Pixels::commonFrameColor(const QImage &image, const QRect &part)
{
    return common(image, part, [part](int x, int y) {
        return x == part.left() || x == part.right() || y == part.top() || y == part.bottom();
    });
}
