// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Poses.h"

#include "KestSwitchButton.h"

#include <QtWidgets/QDial>
#include <QtWidgets/QLCDNumber>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSlider>
#include <QtWidgets/QStyle>

namespace {

using namespace Poses;

const int Length = 120; // pixels
const QString Normal = QStringLiteral("normal");

template <typename Range>
QWidget *createRange(Qt::Orientation orientation)
{
    auto *range = new Range;
    range->setOrientation(orientation);
    range->setRange(0, 100);
    range->setValue(40);
    if (orientation == Qt::Horizontal)
        range->setFixedWidth(Length);
    else
        range->setFixedHeight(Length);
    return range;
}

QWidget *createTickedSlider()
{
    auto *slider = static_cast<QSlider *>(createRange<QSlider>(Qt::Horizontal));
    slider->setTickPosition(QSlider::TicksBelow);
    slider->setTickInterval(20);
    return slider;
}

QVector<SpecimenState> sliderStates()
{
    const Place handle = subControl(QStyle::CC_Slider, QStyle::SC_SliderHandle);
    return {
        normalState(),   { QStringLiteral("hover"), hover(handle), Normal },
        focusState(),    { QStringLiteral("pressed"), press(handle), QStringLiteral("hover") },
        disabledState(),
    };
}

QVector<SpecimenState> scrollBarStates()
{
    QVector<SpecimenState> states { normalState() };
    const struct
    {
        const char *name;
        QStyle::SubControl part;
    } parts[] = { { "handle", QStyle::SC_ScrollBarSlider },
                  { "add line", QStyle::SC_ScrollBarAddLine },
                  { "sub line", QStyle::SC_ScrollBarSubLine } };
    for (const auto &part : parts) {
        const QString name = QString::fromLatin1(part.name);
        const QString hovered = name + QStringLiteral(" hover");
        const Place place = subControl(QStyle::CC_ScrollBar, part.part);
        states.append({ hovered, hover(place), Normal });
        states.append({ name + QStringLiteral(" pressed"), press(place), hovered });
    }
    states.append(disabledState());
    return states;
}

QVector<SpecimenState> progressStates()
{
    const auto setValue = [](int value) {
        return [value](QWidget *widget) { static_cast<QProgressBar *>(widget)->setValue(value); };
    };
    const auto setBusy = [](QWidget *widget) {
        static_cast<QProgressBar *>(widget)->setRange(0, 0);
    };
    return {
        normalState(),
        disabledState(),
        { QStringLiteral("empty"), setValue(0), Normal },
        { QStringLiteral("full"), setValue(100), Normal },
        { QStringLiteral("busy"), setBusy, QStringLiteral("empty") },
    };
}

} // namespace

QVector<Specimen> Specimens::ranges()
{
    const auto createDial = [] {
        auto *dial = new QDial;
        dial->setNotchesVisible(true);
        dial->setValue(40);
        return dial;
    };
    const auto createNumber = [] {
        auto *number = new QLCDNumber;
        number->display(42);
        return number;
    };
    const auto createSwitch = [] {
        auto *button = new KestSwitchButton;
        button->setFixedSize(60, 26);
        return button;
    };
    return {
        { QStringLiteral("QSlider horizontal"), [] { return createRange<QSlider>(Qt::Horizontal); },
          sliderStates() },
        { QStringLiteral("QSlider ticks"), createTickedSlider, { normalState(), disabledState() } },
        { QStringLiteral("QSlider vertical"), [] { return createRange<QSlider>(Qt::Vertical); },
          sliderStates() },
        { QStringLiteral("QDial"), createDial, { normalState(), focusState(), disabledState() } },
        { QStringLiteral("QScrollBar horizontal"),
          [] { return createRange<QScrollBar>(Qt::Horizontal); }, scrollBarStates() },
        { QStringLiteral("QScrollBar vertical"),
          [] { return createRange<QScrollBar>(Qt::Vertical); }, scrollBarStates() },
        { QStringLiteral("QProgressBar horizontal"),
          [] { return createRange<QProgressBar>(Qt::Horizontal); }, progressStates() },
        { QStringLiteral("QProgressBar vertical"),
          [] { return createRange<QProgressBar>(Qt::Vertical); }, progressStates() },
        { QStringLiteral("QLCDNumber"), createNumber, { normalState(), disabledState() } },
        { QStringLiteral("KestSwitchButton"),
          createSwitch,
          { normalState(), focusState(), { QStringLiteral("disabled"), disabled(), QString() } } },
    };
}
