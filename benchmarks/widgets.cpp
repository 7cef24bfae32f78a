// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Contest.h"
#include "ShownWidget.h"

#include "KestCircleProgressBar.h"
#include "KestIPAddressEdit.h"
#include "KestStageProgressBar.h"
#include "KestSwitchButton.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProgressBar>

namespace {

const QSize StageSize(500, 60); // pixels
const QSize RingSize(100, 100);
const int FewPaints = 10; // of a bar with many steps
const int FlashMs = 40; // of the text cursor

KestStageProgressBar *stageBar(int stages)
{
    auto *bar = new KestStageProgressBar;
    bar->setStageCount(stages);
    bar->setTextVisible(true);
    for (int i = 0; i < stages; ++i)
        bar->setText(i, QStringLiteral("Step %1").arg(i));
    bar->resize(StageSize);
    return bar;
}

QProgressBar *progressBar(const QSize &size)
{
    auto *bar = new QProgressBar;
    bar->resize(size);
    return bar;
}

Work stages(int count, int paints = Paints)
{
    return setAndPaintValues(stageBar(count), paints);
}

Work ring()
{
    auto *bar = new KestCircleProgressBar;
    bar->resize(RingSize);
    return setAndPaintValues(bar);
}

// Colours that were never there before, so that nothing drawn earlier will do.
Work newSwitch()
{
    const auto button = shown(new KestSwitchButton);
    return [button] {
        auto *widget = static_cast<KestSwitchButton *>(button.get());
        for (int i = 0; i < Paints; ++i) {
            widget->setCheckedBackground(QColor(i, 100, 200));
            widget->setUncheckedBackground(QColor(200, 100, i));
            widget->toggle();
            widget->repaint();
        }
    };
}

KestIPAddressEdit *addressEdit()
{
    auto *edit = new KestIPAddressEdit;
    edit->setIPAddress(QStringLiteral("192.168.100.200"));
    return edit;
}

QLineEdit *maskedEdit()
{
    auto *edit = new QLineEdit;
    edit->setInputMask(QStringLiteral("000.000.000.000;_"));
    edit->setText(QStringLiteral("192.168.100.200"));
    return edit;
}

Work blink(QWidget *edit)
{
    QApplication::setCursorFlashTime(FlashMs);
    const auto widget = shown(edit);
    giveFocus(edit);
    const auto painted = std::make_shared<PaintWait>(edit);
    painted->wait();
    return [widget, painted] { painted->wait(); };
}

} // namespace

QVector<Row> widgetRows()
{
    const Contestant bar { "QProgressBar",
                           [] { return setAndPaintValues(progressBar(StageSize)); } };
    return {
        { "stageBar", 15, { { "KestStageProgressBar", [] { return stages(5); } }, bar } },
        { "stageBarTwentySteps",
          5,
          { { "KestStageProgressBar", [] { return stages(20, FewPaints); } } } },
        { "stageBarFortySteps",
          5,
          { { "KestStageProgressBar", [] { return stages(40, FewPaints); } } } },
        { "switchDrawnBefore",
          15,
          { { "KestSwitchButton", [] { return toggleAndPaint(new KestSwitchButton); } } } },
        { "switchNew", 15, { { "KestSwitchButton", newSwitch } } },
        { "addressPaint",
          15,
          { { "KestIPAddressEdit", [] { return paintFocused(addressEdit()); } },
            { "QLineEdit", [] { return paintFocused(maskedEdit()); } } } },
        { "addressBlink",
          1,
          { { "KestIPAddressEdit", [] { return blink(addressEdit()); } },
            { "QLineEdit", [] { return blink(maskedEdit()); } } } },
        { "addressTyping",
          15,
          { { "KestIPAddressEdit", [] { return typeAddress(new KestIPAddressEdit); } },
            { "QLineEdit",
              [] {
                  auto *edit = new QLineEdit;
                  edit->setInputMask(QStringLiteral("000.000.000.000;_"));
                  return typeAddress(edit);
              } } } },
        { "circleBar",
          15,
          { { "KestCircleProgressBar", ring },
            { "QProgressBar",
              [] { return setAndPaintValues(progressBar(QSize(RingSize.width(), 24))); } } } },
    };
}
