// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// The indicators: every setter with any int, and their painting. What they hold is compared with
// what their rules leave of it; a host may delete them, or call back, in their signals.

#include "Fuzzer.h"
#include "KestCircleProgressBar.h"
#include "KestComboBox.h"
#include "KestStageProgressBar.h"
#include "KestSwitchButton.h"

#include <QtCore/QPointer>
#include <QtGui/QImage>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <functional>

namespace {

QColor color(FuzzInput &input)
{
    if (input.below(8) == 0)
        return QColor();
    const int red = input.byte();
    const int green = input.byte();
    return QColor(red, green, input.byte(), input.byte());
}

// Gradients stay small: what has no finite steps takes QPainter past the end of its colours.
QBrush brush(FuzzInput &input)
{
    switch (input.below(6)) {
    case 0: {
        QLinearGradient gradient(input.byte(), 3, input.byte(), 70);
        gradient.setColorAt(0.5, color(input));
        return gradient;
    }
    case 1: {
        QRadialGradient gradient(input.byte(), 20, 1 + input.below(100));
        gradient.setColorAt(input.below(3) / 2.0, color(input));
        return gradient;
    }
    case 2:
        return QBrush(color(input), Qt::BrushStyle(input.below(15)));
    case 3:
        return QBrush(QPixmap(input.below(3), 2));
    default:
        return color(input);
    }
}

QPen pen(FuzzInput &input)
{
    return QPen(brush(input), input.integer(), Qt::PenStyle(input.below(6)));
}

// All events of a widget that do not belong to its class.
void ordinaryEvent(QWidget *widget, FuzzInput &input)
{
    switch (input.below(8)) {
    case 0:
        widget->resize(input.below(200), input.below(120));
        break;
    case 1:
        widget->setVisible(input.flag());
        break;
    case 2:
        widget->setLayoutDirection(input.flag() ? Qt::RightToLeft : Qt::LeftToRight);
        break;
    case 3:
        widget->setEnabled(input.flag());
        break;
    case 4: {
        QFont font = widget->font();
        font.setPointSize(1 + input.below(40));
        widget->setFont(font);
        break;
    }
    case 5: {
        const int keys[] = { Qt::Key_Space, Qt::Key_Up,   Qt::Key_Down, Qt::Key_Return,
                             Qt::Key_A,     Qt::Key_Home, Qt::Key_End,  Qt::Key_F4 };
        const int key = keys[input.below(8)];
        const QPointer<QWidget> guard(widget);
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString(QChar(key & 0x7f)));
        QCoreApplication::sendEvent(widget, &press);
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
        if (guard)
            QCoreApplication::sendEvent(widget, &release);
        break;
    }
    case 6: {
        const QPointer<QWidget> guard(widget);
        const QPointF at(input.below(256), input.below(64));
        for (const QEvent::Type type : { QEvent::MouseButtonPress, QEvent::MouseButtonRelease }) {
            QMouseEvent event(type, at, Qt::LeftButton,
                              type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                              Qt::NoModifier);
            if (guard)
                QCoreApplication::sendEvent(widget, &event);
        }
        break;
    }
    default: {
        widget->sizeHint();
        const qreal ratio = 0.25 + input.below(16) / 4.0;
        QImage image(int(widget->width() * ratio) + 1, int(widget->height() * ratio) + 1,
                     QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(0);
        widget->render(&image);
        break;
    }
    }
}

// Runs \a step until the input ends or the widget is dead, and the host's answer to a signal after
// a number of them: it deletes the widget, or takes a step of its own.
class Host
{
public:
    Host(QWidget *widget, FuzzInput &input) : m_widget(widget), m_left(input.byte())
    {
        m_deletes = input.flag();
    }
    ~Host() { delete m_widget; }

    bool hasAnswered() const { return m_left < 0; }

    void run(FuzzInput &input, const std::function<void()> &step)
    {
        m_step = step;
        while (m_widget && !input.atEnd())
            step();
    }

    void answer()
    {
        if (hasAnswered() || m_left-- > 0)
            return;
        if (m_deletes)
            delete m_widget;
        else
            m_step();
    }

private:
    QPointer<QWidget> m_widget;
    std::function<void()> m_step;
    int m_left;
    bool m_deletes;
};

void tryStages(FuzzInput &input)
{
    // Each is a text, a circle and a number to paint. Qt fills the outline of circles that overlap
    // in a time that grows faster than their number: 300 of 763 pixels took it more than a minute.
    const int MostStages = 24;
    QPointer<KestStageProgressBar> bar(new KestStageProgressBar);
    int announced = bar->value();
    Host host(bar, input);
    QObject::connect(bar, &KestStageProgressBar::valueChanged, qApp, [&](int value) {
        announced = value;
        FUZZ_CHECK(value == bar->value(), QString::number(value));
        host.answer();
    });
    host.run(input, [&] {
        switch (input.below(12)) {
        case 0:
            bar->setValue(input.integer());
            break;
        case 1:
            bar->setMinimum(input.integer());
            break;
        case 2:
            bar->setMaximum(input.integer());
            break;
        case 3: {
            const int minimum = input.integer();
            bar->setRange(minimum, input.integer());
            break;
        }
        case 4:
            bar->setStageCount(std::min(input.integer(), MostStages));
            break;
        case 5:
            bar->setStageCircleRadius(input.integer());
            break;
        case 6: {
            const int index = input.integer();
            bar->setText(index, input.text(12));
            break;
        }
        case 7:
            bar->setTextVisible(input.flag());
            bar->text(input.integer());
            break;
        case 8:
            bar->setOrientation(input.flag() ? Qt::Vertical : Qt::Horizontal);
            break;
        case 9:
            bar->setStageIndexTextPen(pen(input));
            bar->setRateBackground(brush(input));
            break;
        default:
            ordinaryEvent(bar, input);
            break;
        }
        if (!bar)
            return;
        FUZZ_CHECK(bar->minimum() <= bar->value() && bar->value() <= bar->maximum(),
                   QStringLiteral("%1 in %2 to %3")
                       .arg(bar->value())
                       .arg(bar->minimum())
                       .arg(bar->maximum()));
        FUZZ_CHECK(announced == bar->value(), QString::number(announced));
        FUZZ_CHECK(bar->stageCount() >= 2, QString::number(bar->stageCount()));
    });
}

void tryCircle(FuzzInput &input)
{
    QPointer<KestCircleProgressBar> bar(new KestCircleProgressBar);
    int announced = bar->value();
    Host host(bar, input);
    QObject::connect(bar, &KestCircleProgressBar::valueChanged, qApp, [&](int value) {
        announced = value;
        FUZZ_CHECK(value == bar->value(), QString::number(value));
        host.answer();
    });
    host.run(input, [&] {
        switch (input.below(9)) {
        case 0:
            bar->setValue(input.integer());
            break;
        case 1:
            bar->setMinimum(input.integer());
            break;
        case 2:
            bar->setMaximum(input.integer());
            break;
        case 3: {
            const int minimum = input.integer();
            bar->setRange(minimum, input.integer());
            break;
        }
        case 4:
            bar->setBarWidth(input.integer());
            bar->setPenCapStyle(Qt::PenCapStyle(input.below(3) * 0x10));
            break;
        case 5:
            bar->setFormat(input.text(16));
            bar->setTextVisible(input.flag());
            break;
        case 6:
            bar->setBarBrush(brush(input));
            bar->setBackgroundBrush(brush(input));
            break;
        default:
            ordinaryEvent(bar, input);
            break;
        }
        if (!bar)
            return;
        const bool inRange = bar->minimum() <= bar->value() && bar->value() <= bar->maximum();
        FUZZ_CHECK(announced == bar->value(), QString::number(announced));
        FUZZ_CHECK(inRange || bar->text().isEmpty(), bar->text());
        if (!inRange || bar->format() != QLatin1String("%p%"))
            return;
        const qint64 steps = qint64(bar->maximum()) - bar->minimum();
        const qint64 done = qint64(bar->value()) - bar->minimum();
        const QString percent =
            QString::number(steps ? int(double(done) / double(steps) * 100.0) : 100);
        FUZZ_CHECK(bar->text() == percent + QLatin1Char('%'),
                   QStringLiteral("%1, not %2").arg(bar->text(), percent));
    });
}

void trySwitch(FuzzInput &input)
{
    QPointer<KestSwitchButton> button(new KestSwitchButton);
    bool checked = false;
    Host host(button, input);
    QObject::connect(button, &KestSwitchButton::toggled, qApp, [&](bool on) { checked = on; });
    // Not in toggled(): setChecked() of QAbstractButton goes on to use the button behind it.
    QObject::connect(button, &KestSwitchButton::clicked, qApp, [&] { host.answer(); });
    host.run(input, [&] {
        switch (input.below(8)) {
        case 0:
            button->setChecked(input.flag());
            break;
        case 1:
            button->click();
            break;
        case 2:
            button->setCheckedBackground(brush(input));
            button->setUncheckedBackground(brush(input));
            break;
        case 3:
            button->setCheckedHandleBrush(brush(input));
            button->setUncheckedHandleBrush(brush(input));
            break;
        case 4:
            button->setCheckedBackgroundBorderColor(color(input));
            button->setUncheckedBackgroundBorderColor(color(input));
            button->setCheckedHandleBorderColor(color(input));
            button->setUncheckedHandleBorderColor(color(input));
            break;
        default:
            ordinaryEvent(button, input);
            break;
        }
        FUZZ_CHECK(!button || button->isChecked() == checked, QString());
    });
}

void tryCombo(FuzzInput &input)
{
    QPointer<KestComboBox> combo(new KestComboBox(nullptr));
    int announced = 0;
    bool opening = false;
    Host host(combo, input);
    QObject::connect(combo, &KestComboBox::aboutToShowPopup, qApp, [&] {
        ++announced;
        host.answer();
    });
    host.run(input, [&] {
        switch (input.below(12)) {
        case 0: {
            if (opening)
                break;
            opening = true;
            const int before = announced;
            const bool answered = host.hasAnswered();
            combo->showPopup();
            opening = false;
            // An answer may open it again, by a click or a key.
            FUZZ_CHECK(announced == before + 1 || answered != host.hasAnswered(),
                       QString::number(announced - before));
            break;
        }
        case 1:
            combo->hidePopup();
            break;
        case 2: {
            const int index = input.integer();
            combo->insertItem(index, input.text(9));
            break;
        }
        case 3:
            if (combo->count() < 200)
                combo->addItem(input.text(9));
            break;
        case 4: {
            const int index = input.integer();
            if (index < combo->count())
                combo->removeItem(index);
            break;
        }
        case 5:
            combo->setCurrentIndex(input.integer());
            break;
        case 6:
            combo->clear();
            break;
        case 7:
            combo->setMaxVisibleItems(input.integer());
            break;
        case 8:
            combo->setEditable(input.flag());
            break;
        default:
            ordinaryEvent(combo, input);
            break;
        }
    });
}

} // namespace

void fuzz(FuzzInput &input)
{
    using Trial = void (*)(FuzzInput &);
    const Trial trials[] = { tryStages, tryCircle, trySwitch, tryCombo };
    trials[input.below(4)](input);
}
