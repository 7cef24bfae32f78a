// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestColor.h"

#include <QtCore/QMetaEnum>

namespace {

const int PaletteSize = 20;
const double LightLuminance = 127.0; // above it a colour is light
const int DarkTextLightness = 45;
const int LightTextLightness = 210;

} // namespace

KestColor::KestColor(QObject *parent) : QObject(parent)
{ }

KestColor::~KestColor() = default;

QColor KestColor::generateBackgroundColor(int index)
{
    // The remainder keeps the sign of the index, and the enumerator answers a position below zero
    // with -1, whose low 24 bits are white.
    const QMetaEnum colors = QMetaEnum::fromType<Colors>();
    return QColor(QRgb(colors.value(index % PaletteSize)));
}

QColor KestColor::generateForegroundColor(QColor background)
{
    const QColor hsl = background.toHsl();
    const int lightness = isLight(hsl) ? DarkTextLightness : LightTextLightness;
    return QColor::fromHsl(hsl.hslHue(), hsl.hslSaturation(), lightness);
}

bool isLight(QColor color)
{
    const double luminance = 0.213 * color.red() + 0.715 * color.green() + 0.072 * color.blue();
    return luminance > LightLuminance;
}
