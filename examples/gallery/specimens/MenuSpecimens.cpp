// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Poses.h"

#include <QAction>
#include <QActionGroup>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QToolTip>

namespace {

using namespace Poses;

const QString Normal = QStringLiteral("normal");

// The entries of a menu in the order in which the poses below count them.
enum Entry {
    Plain,
    WithIcon,
    Checked,
    CheckedWithIcon,
    Unchecked,
    Choice,
    Default,
    Off,
    OffChecked,
    Sub
};

void addEntries(QMenu *menu)
{
    const auto checkable = [menu](const char *text, bool on) {
        QAction *const action = menu->addAction(QString::fromLatin1(text));
        action->setCheckable(true);
        action->setChecked(on);
        return action;
    };
    menu->addAction(QStringLiteral("Plain"))->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_P));
    menu->addAction(icon(), QStringLiteral("With an icon"));
    checkable("Checked", true);
    checkable("Checked with an icon", true)->setIcon(icon());
    checkable("Unchecked", false);
    auto *group = new QActionGroup(menu);
    group->addAction(checkable("One of several", true));
    menu->setDefaultAction(menu->addAction(QStringLiteral("Default")));
    menu->addAction(icon(), QStringLiteral("Disabled"))->setEnabled(false);
    checkable("Disabled, checked", true)->setEnabled(false);
    menu->addMenu(QStringLiteral("Submenu"))->addAction(QStringLiteral("Entry"));
    menu->insertSeparator(menu->actions().at(Default));
    menu->addSection(QStringLiteral("Section"));
    menu->addAction(QStringLiteral("Last"));
}

QWidget *createMenu()
{
    auto *menu = new QMenu;
    addEntries(menu);
    return menu;
}

Pose active(Entry entry)
{
    return [entry](QWidget *widget) {
        auto *menu = static_cast<QMenu *>(widget);
        // The separator stands before the default entry.
        const int index = entry < Default ? entry : entry + 1;
        menu->setActiveAction(menu->actions().at(index));
    };
}

QVector<SpecimenState> menuStates()
{
    const struct
    {
        const char *name;
        Entry entry;
    } entries[] = { { "plain", Plain },     { "with an icon", WithIcon },
                    { "checked", Checked }, { "checked with an icon", CheckedWithIcon },
                    { "default", Default }, { "disabled", Off },
                    { "choice", Choice } };
    QVector<SpecimenState> states { normalState() };
    for (const auto &entry : entries) {
        // A disabled entry may look the same under the pointer.
        states.append({ QStringLiteral("active ") + QLatin1String(entry.name), active(entry.entry),
                        entry.entry == Off ? QString() : Normal });
    }
    return states;
}

QWidget *createMenuBar()
{
    auto *bar = new QMenuBar;
    bar->setNativeMenuBar(false);
    for (const char *name : { "File", "Edit", "Off" })
        bar->addMenu(QString::fromLatin1(name))->addAction(QStringLiteral("Entry"));
    bar->actions().at(2)->setEnabled(false);
    bar->setMinimumWidth(180);
    return bar;
}

void selectEntry(QWidget *bar)
{
    auto *menus = static_cast<QMenuBar *>(bar);
    hoverAt(bar, menus->actionGeometry(menus->actions().at(1)).center());
}

void openEntry(QWidget *bar)
{
    auto *menus = static_cast<QMenuBar *>(bar);
    menus->setFocus();
    menus->setActiveAction(menus->actions().at(1));
}

QToolBar *createToolBar(Qt::Orientation orientation)
{
    auto *bar = new QToolBar;
    bar->setOrientation(orientation);
    bar->addAction(icon(), QStringLiteral("Plain"));
    QAction *const checked = bar->addAction(icon(), QStringLiteral("Checked"));
    checked->setCheckable(true);
    checked->setChecked(true);
    bar->addSeparator();
    bar->addAction(icon(), QStringLiteral("Off"))->setEnabled(false);
    return bar;
}

QWidget *createPlainToolBar()
{
    QToolBar *const bar = createToolBar(Qt::Horizontal);
    bar->addAction(QStringLiteral("Text"));
    return bar;
}

// A main window gives the bar its handle, and little room, which brings the button to extend it.
QWidget *createToolBarWindow()
{
    auto *window = new QMainWindow;
    window->addToolBar(createToolBar(Qt::Horizontal));
    window->addToolBar(Qt::LeftToolBarArea, createToolBar(Qt::Vertical));
    window->setCentralWidget(new QLabel(QStringLiteral("Central")));
    window->setFixedSize(150, 150);
    return window;
}

Pose onToolBarButton(int index, const Pose &pose)
{
    return [index, pose](QWidget *widget) {
        auto *bar = static_cast<QToolBar *>(widget);
        pose(bar->widgetForAction(bar->actions().at(index)));
    };
}

QWidget *createStatusBar()
{
    auto *bar = new QStatusBar;
    bar->showMessage(QStringLiteral("Ready"));
    auto *progress = new QProgressBar;
    progress->setValue(50);
    progress->setFixedWidth(70);
    bar->addPermanentWidget(progress);
    bar->addPermanentWidget(new QLabel(QStringLiteral("Line 1")));
    bar->setSizeGripEnabled(true);
    bar->setMinimumWidth(240);
    return bar;
}

void showToolTip(QWidget *widget)
{
    QToolTip::showText(widget->mapToGlobal(QPoint(4, 0)), QStringLiteral("What it does"), widget);
}

} // namespace

QVector<Specimen> Specimens::menus()
{
    const auto createToolTip = [] {
        auto *label = new QLabel(QStringLiteral("Label"));
        label->setMinimumSize(110, 60);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        return label;
    };
    return {
        { QStringLiteral("QMenu"), createMenu, menuStates() },
        { QStringLiteral("QMenuBar"),
          createMenuBar,
          { normalState(),
            { QStringLiteral("hover"), selectEntry, Normal },
            { QStringLiteral("open"), openEntry, Normal },
            disabledState() } },
        { QStringLiteral("QToolBar"),
          createPlainToolBar,
          { normalState(),
            { QStringLiteral("hover"), onToolBarButton(0, hover()), Normal },
            { QStringLiteral("pressed"), onToolBarButton(0, press()), QStringLiteral("hover") },
            { QStringLiteral("checked hover"), onToolBarButton(1, hover()), Normal },
            disabledState() } },
        { QStringLiteral("QToolBar window"), createToolBarWindow, { normalState() } },
        { QStringLiteral("QStatusBar"), createStatusBar, { normalState(), disabledState() } },
        { QStringLiteral("QToolTip"),
          createToolTip,
          { { QStringLiteral("shown"), showToolTip, QString() } } },
    };
}
