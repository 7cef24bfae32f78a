// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Poses.h"

#include <QtGui/QHoverEvent>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QToolButton>

namespace {

const int MostTabStops = 20; // of a specimen

// Widgets fill their style options themselves, in functions that only they may call.
template <typename Widget, typename Option>
class OptionsOf : public Widget
{
public:
    static Option of(const QWidget *widget)
    {
        Option option;
        (static_cast<const Widget *>(widget)->*(&OptionsOf::initStyleOption))(&option);
        return option;
    }
};

template <typename Widget, typename Option>
QRect partOf(QWidget *widget, int complexControl, int subControl)
{
    const Option option = OptionsOf<Widget, Option>::of(widget);
    return widget->style()->subControlRect(QStyle::ComplexControl(complexControl), &option,
                                           QStyle::SubControl(subControl), widget);
}

} // namespace

QPoint Poses::centre(QWidget *widget)
{
    return widget->rect().center();
}

void Poses::hoverAt(QWidget *widget, const QPoint &at)
{
    // Qt keeps this attribute where the pointer itself moves.
    widget->setAttribute(Qt::WA_UnderMouse);
    QEnterEvent enter(at, widget->mapTo(widget->window(), at), widget->mapToGlobal(at));
    QApplication::sendEvent(widget, &enter);
    QHoverEvent hover(QEvent::HoverEnter, at, QPointF(-1, -1));
    QApplication::sendEvent(widget, &hover);
    if (!widget->hasMouseTracking())
        return;
    QMouseEvent move(QEvent::MouseMove, at, widget->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QApplication::sendEvent(widget, &move);
}

void Poses::pressAt(QWidget *widget, const QPoint &at)
{
    hoverAt(widget, at);
    QMouseEvent press(QEvent::MouseButtonPress, at, widget->mapToGlobal(at), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
}

void Poses::tabInto(QWidget *widget)
{
    // Only a Tab key that is pressed makes the style show where the focus is.
    for (int i = 0; i < MostTabStops && !widget->hasFocus(); ++i) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
        QApplication::sendEvent(QApplication::focusWidget(), &press);
    }
}

Poses::Pose Poses::child(const char *objectName, const Pose &pose)
{
    const QString name = QString::fromLatin1(objectName);
    return [name, pose](QWidget *widget) { pose(widget->findChild<QWidget *>(name)); };
}

Poses::Pose Poses::nothing()
{
    return [](QWidget *) {};
}

Poses::Pose Poses::disabled()
{
    return [](QWidget *widget) { widget->setEnabled(false); };
}

Poses::Pose Poses::hover(const Place &place)
{
    return [place](QWidget *widget) { hoverAt(widget, place(widget)); };
}

Poses::Pose Poses::press(const Place &place)
{
    return [place](QWidget *widget) { pressAt(widget, place(widget)); };
}

Poses::Pose Poses::focus()
{
    return tabInto;
}

Poses::Pose Poses::property(const char *name, bool value)
{
    return [name, value](QWidget *widget) { widget->setProperty(name, value); };
}

Poses::Pose Poses::both(const Pose &first, const Pose &second)
{
    return [first, second](QWidget *widget) {
        first(widget);
        second(widget);
    };
}

Poses::Place Poses::subControl(int complexControl, int subControl)
{
    return [complexControl, subControl](QWidget *widget) {
        QRect part;
        switch (complexControl) {
        case QStyle::CC_SpinBox:
            part =
                partOf<QAbstractSpinBox, QStyleOptionSpinBox>(widget, complexControl, subControl);
            break;
        case QStyle::CC_ScrollBar:
            part = partOf<QScrollBar, QStyleOptionSlider>(widget, complexControl, subControl);
            break;
        case QStyle::CC_Slider:
            part = partOf<QSlider, QStyleOptionSlider>(widget, complexControl, subControl);
            break;
        case QStyle::CC_ToolButton:
            part = partOf<QToolButton, QStyleOptionToolButton>(widget, complexControl, subControl);
            break;
        case QStyle::CC_GroupBox:
            part = partOf<QGroupBox, QStyleOptionGroupBox>(widget, complexControl, subControl);
            break;
        case QStyle::CC_ComboBox:
            part = partOf<QComboBox, QStyleOptionComboBox>(widget, complexControl, subControl);
            break;
        default:
            Q_UNREACHABLE();
        }
        return part.center();
    };
}

QIcon Poses::icon()
{
    QPixmap pixmap(64, 64);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 6));
    painter.setBrush(QColor(0x0B, 0x2A, 0x4A));
    painter.drawEllipse(QRect(6, 6, 52, 52));
    painter.drawLine(22, 32, 42, 32);
    return pixmap;
}

SpecimenState Poses::normalState()
{
    return { QStringLiteral("normal"), nothing(), QString() };
}

SpecimenState Poses::disabledState()
{
    return { QStringLiteral("disabled"), disabled(), QStringLiteral("normal") };
}

SpecimenState Poses::hoverState()
{
    return { QStringLiteral("hover"), hover(), QStringLiteral("normal") };
}

SpecimenState Poses::pressedState()
{
    return { QStringLiteral("pressed"), press(), QStringLiteral("hover") };
}

SpecimenState Poses::focusState()
{
    return { QStringLiteral("focus"), focus(), QStringLiteral("normal") };
}

Poses::Pose Poses::hoverItem(int row, int column)
{
    return [row, column](QWidget *widget) {
        auto *view = static_cast<QAbstractItemView *>(widget);
        const QRect rect = view->visualRect(view->model()->index(row, column));
        hoverAt(view->viewport(), rect.center());
    };
}

Poses::Pose Poses::currentItem(int row, int column)
{
    return [row, column](QWidget *widget) {
        auto *view = static_cast<QAbstractItemView *>(widget);
        view->setCurrentIndex(view->model()->index(row, column));
    };
}
