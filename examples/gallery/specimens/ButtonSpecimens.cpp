// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Poses.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QCommandLinkButton>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QToolButton>

namespace {

using namespace Poses;

const QString Normal = QStringLiteral("normal");

Pose checked()
{
    return property("checked");
}

QVector<SpecimenState> plainStates()
{
    return { normalState(), hoverState(), focusState(), pressedState(), disabledState() };
}

// What a button that stays down shows; hovered and pressed it still has to show that it is.
QVector<SpecimenState> checkedStates()
{
    return {
        { QStringLiteral("checked"), checked(), Normal },
        { QStringLiteral("checked hover"), both(checked(), hover()), QStringLiteral("hover") },
        { QStringLiteral("checked focus"), both(checked(), focus()), QStringLiteral("checked") },
        { QStringLiteral("checked pressed"), both(checked(), press()),
          QStringLiteral("checked hover") },
        { QStringLiteral("checked disabled"), both(checked(), disabled()),
          QStringLiteral("disabled") },
        { QStringLiteral("disabled checked"), both(checked(), disabled()),
          QStringLiteral("checked") },
    };
}

QWidget *createPushButton()
{
    auto *button = new QPushButton(QStringLiteral("Button"));
    button->setAutoDefault(false);
    return button;
}

QWidget *createDefaultButton()
{
    auto *button = new QPushButton(QStringLiteral("Default"));
    button->setDefault(true);
    return button;
}

QWidget *createToggle()
{
    QWidget *const button = createPushButton();
    button->setProperty("checkable", true);
    return button;
}

QWidget *createFlatButton()
{
    auto *button = static_cast<QPushButton *>(createToggle());
    button->setFlat(true);
    return button;
}

QWidget *createMenuButton()
{
    auto *button = static_cast<QPushButton *>(createPushButton());
    button->setMenu(new QMenu(button));
    return button;
}

QWidget *createIconButton()
{
    auto *button = static_cast<QPushButton *>(createPushButton());
    button->setIcon(icon());
    return button;
}

QToolButton *createToolButton()
{
    auto *button = new QToolButton;
    button->setText(QStringLiteral("Tool"));
    button->setCheckable(true);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

QWidget *createToolButtonWithMenu(QToolButton::ToolButtonPopupMode mode)
{
    QToolButton *const button = createToolButton();
    button->setIcon(icon());
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setMenu(new QMenu(button));
    button->setPopupMode(mode);
    return button;
}

QWidget *createCommandLink()
{
    return new QCommandLinkButton(QStringLiteral("Command"), QStringLiteral("What it does"));
}

// A check box and a radio button have marks for each pair of states.
QVector<SpecimenState> markStates(const QString &name, const Pose &mark)
{
    const QString with = name + QLatin1Char(' ');
    return {
        { name, mark, Normal },
        { with + QStringLiteral("hover"), both(mark, hover()), name },
        { with + QStringLiteral("focus"), both(mark, focus()), name },
        { with + QStringLiteral("pressed"), both(mark, press()), with + QStringLiteral("hover") },
        { with + QStringLiteral("disabled"), both(mark, disabled()), name },
        { QStringLiteral("disabled ") + name, both(mark, disabled()), QStringLiteral("disabled") },
    };
}

QWidget *createTristate()
{
    auto *box = new QCheckBox(QStringLiteral("Check"));
    box->setTristate(true);
    return box;
}

QWidget *createButtonBox()
{
    return new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel
                                | QDialogButtonBox::Apply | QDialogButtonBox::Help);
}

} // namespace

QVector<Specimen> Specimens::buttons()
{
    const auto setPartly = [](QWidget *widget) {
        static_cast<QCheckBox *>(widget)->setCheckState(Qt::PartiallyChecked);
    };
    const QVector<SpecimenState> toggled = plainStates() + checkedStates();
    const Place menuPart = subControl(QStyle::CC_ToolButton, QStyle::SC_ToolButtonMenu);
    return {
        { QStringLiteral("QPushButton"), createPushButton, plainStates() },
        { QStringLiteral("QPushButton default"), createDefaultButton, plainStates() },
        { QStringLiteral("QPushButton checkable"), createToggle, toggled },
        { QStringLiteral("QPushButton flat"), createFlatButton, toggled },
        { QStringLiteral("QPushButton menu"),
          createMenuButton,
          { normalState(), hoverState(), focusState(), disabledState() } },
        { QStringLiteral("QPushButton icon"), createIconButton, plainStates() },
        { QStringLiteral("QToolButton"), createToolButton, toggled },
        { QStringLiteral("QToolButton arrow"),
          [] {
              QToolButton *const button = createToolButton();
              button->setArrowType(Qt::DownArrow);
              return button;
          },
          plainStates() },
        { QStringLiteral("QToolButton menu beside"),
          [] { return createToolButtonWithMenu(QToolButton::MenuButtonPopup); },
          plainStates()
              + QVector<SpecimenState> { { QStringLiteral("menu hover"), hover(menuPart),
                                           Normal } } },
        { QStringLiteral("QToolButton menu"),
          [] { return createToolButtonWithMenu(QToolButton::InstantPopup); },
          { normalState(), hoverState(), focusState(), disabledState() } },
        { QStringLiteral("QCommandLinkButton"), createCommandLink, plainStates() },
        { QStringLiteral("QCheckBox"), createTristate,
          plainStates() + markStates(QStringLiteral("checked"), checked())
              + markStates(QStringLiteral("partly"), setPartly) },
        { QStringLiteral("QRadioButton"), [] { return new QRadioButton(QStringLiteral("Radio")); },
          plainStates() + markStates(QStringLiteral("checked"), checked()) },
        { QStringLiteral("QDialogButtonBox"), createButtonBox, { normalState(), disabledState() } },
    };
}
