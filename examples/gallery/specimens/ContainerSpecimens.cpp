// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Poses.h"

#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMdiArea>
#include <QtWidgets/QMdiSubWindow>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTabBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTextEdit>
#include <QtWidgets/QToolBox>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

namespace {

using namespace Poses;

const QSize TabSize(220, 90); // pixels
const QString Normal = QStringLiteral("normal");

QWidget *createGroup()
{
    auto *box = new QGroupBox(QStringLiteral("Group"));
    auto *layout = new QVBoxLayout(box);
    layout->addWidget(new QCheckBox(QStringLiteral("Check")));
    return box;
}

QWidget *createCheckableGroup()
{
    QWidget *const box = createGroup();
    box->setProperty("checkable", true);
    return box;
}

QTabWidget *createTabs(QTabWidget::TabPosition position)
{
    auto *tabs = new QTabWidget;
    tabs->setTabPosition(position);
    for (const char *name : { "One", "Two", "Off" })
        tabs->addTab(new QLabel(QStringLiteral("Page")), QString::fromLatin1(name));
    tabs->setTabEnabled(2, false);
    const bool upright = position == QTabWidget::North || position == QTabWidget::South;
    tabs->setFixedSize(upright ? TabSize : QSize(110, 240));
    return tabs;
}

QWidget *createClosableTabs()
{
    auto *tabs = createTabs(QTabWidget::North);
    tabs->setTabsClosable(true);
    return tabs;
}

// More tabs than there is room for, which brings the buttons to scroll them.
QWidget *createManyTabs()
{
    auto *tabs = createTabs(QTabWidget::North);
    for (int i = 0; i < 6; ++i)
        tabs->addTab(new QWidget, QStringLiteral("Further tab"));
    return tabs;
}

QTabBar *barOf(QWidget *tabs)
{
    return static_cast<QTabWidget *>(tabs)->tabBar();
}

Pose hoverTab(int index)
{
    return [index](QWidget *tabs) { hoverAt(barOf(tabs), barOf(tabs)->tabRect(index).center()); };
}

void focusTab(QWidget *tabs)
{
    tabInto(barOf(tabs));
}

void hoverClose(QWidget *tabs)
{
    QWidget *const cross = barOf(tabs)->tabButton(0, QTabBar::RightSide);
    if (cross)
        hoverAt(cross, cross->rect().center());
}

QVector<SpecimenState> tabStates()
{
    return {
        normalState(),
        { QStringLiteral("selected hover"), hoverTab(0), QString() },
        { QStringLiteral("hover"), hoverTab(1), Normal },
        { QStringLiteral("focus"), focusTab, Normal },
        disabledState(),
    };
}

QWidget *createToolBox()
{
    auto *box = new QToolBox;
    for (const char *name : { "First", "Second", "Off" })
        box->addItem(new QLabel(QStringLiteral("Page")), QString::fromLatin1(name));
    box->setItemEnabled(2, false);
    box->setFixedSize(150, 150);
    return box;
}

Pose toolBoxTab(int index, const Pose &pose)
{
    return [index, pose](QWidget *box) {
        QList<QAbstractButton *> tabs =
            box->findChildren<QAbstractButton *>(QStringLiteral("qt_toolbox_toolboxbutton"));
        pose(tabs.at(index));
    };
}

QWidget *createSplitter(Qt::Orientation orientation)
{
    auto *splitter = new QSplitter(orientation);
    for (const char *name : { "One", "Two" }) {
        auto *side = new QTextEdit(QString::fromLatin1(name));
        side->setFixedSize(70, 60);
        splitter->addWidget(side);
    }
    return splitter;
}

void hoverHandle(QWidget *splitter)
{
    QWidget *const handle = static_cast<QSplitter *>(splitter)->handle(1);
    hoverAt(handle, handle->rect().center());
}

QWidget *createDocks()
{
    auto *window = new QMainWindow;
    window->setCentralWidget(new QTextEdit(QStringLiteral("Text")));
    for (const char *name : { "Dock", "Other" }) {
        auto *dock = new QDockWidget(QString::fromLatin1(name));
        dock->setWidget(new QLabel(QStringLiteral("In the dock")));
        window->addDockWidget(Qt::LeftDockWidgetArea, dock);
    }
    auto *upright = new QDockWidget(QStringLiteral("Upright"));
    upright->setFeatures(upright->features() | QDockWidget::DockWidgetVerticalTitleBar);
    window->addDockWidget(Qt::BottomDockWidgetArea, upright);
    window->setFixedSize(300, 200);
    return window;
}

QWidget *createMdi()
{
    auto *area = new QMdiArea;
    area->setFixedSize(320, 190);
    for (const char *name : { "Behind", "In front" }) {
        auto *inner = new QLabel(QStringLiteral("Text"));
        inner->setWindowTitle(QString::fromLatin1(name));
        inner->setWindowIcon(icon());
        area->addSubWindow(inner)->setGeometry(area->subWindowList().size() * 50 - 40,
                                               area->subWindowList().size() * 30 - 20, 200, 110);
    }
    return area;
}

void maximiseSubWindow(QWidget *area)
{
    static_cast<QMdiArea *>(area)->currentSubWindow()->showMaximized();
}

QWidget *createFrames()
{
    auto *box = new QWidget;
    auto *layout = new QHBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const QFrame::Shape shape :
         { QFrame::Box, QFrame::Panel, QFrame::StyledPanel, QFrame::HLine, QFrame::VLine }) {
        auto *frame = new QFrame;
        frame->setFrameShape(shape);
        frame->setFrameShadow(QFrame::Sunken);
        frame->setMinimumSize(30, 30);
        layout->addWidget(frame);
    }
    return box;
}

QWidget *createScrollArea()
{
    auto *area = new QScrollArea;
    auto *inside = new QLabel(QStringLiteral("A text that is wider than its area"));
    inside->setMinimumHeight(200);
    inside->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    area->setWidget(inside);
    area->setFixedSize(120, 80);
    return area;
}

QWidget *createLabel()
{
    auto *label = new QLabel(QStringLiteral("Plain and <a href=\"x\">a link</a>"));
    label->setTextInteractionFlags(Qt::TextBrowserInteraction);
    return label;
}

} // namespace

QVector<Specimen> Specimens::containers()
{
    const Pose unchecked = property("checked", false);
    const Place checkBox = subControl(QStyle::CC_GroupBox, QStyle::SC_GroupBoxCheckBox);
    QVector<Specimen> specimens {
        { QStringLiteral("QLabel"),
          createLabel,
          { normalState(), { QStringLiteral("focus"), focus(), QString() }, disabledState() } },
        { QStringLiteral("QFrame"), createFrames, { normalState() } },
        { QStringLiteral("QGroupBox"), createGroup, { normalState(), disabledState() } },
        { QStringLiteral("QGroupBox checkable"),
          createCheckableGroup,
          { normalState(),
            { QStringLiteral("hover"), hover(checkBox), Normal },
            { QStringLiteral("pressed"), press(checkBox), QStringLiteral("hover") },
            focusState(),
            disabledState(),
            { QStringLiteral("unchecked"), unchecked, Normal },
            { QStringLiteral("unchecked hover"), both(unchecked, hover(checkBox)),
              QStringLiteral("unchecked") },
            { QStringLiteral("unchecked focus"), both(unchecked, focus()),
              QStringLiteral("unchecked") },
            { QStringLiteral("unchecked disabled"), both(unchecked, disabled()),
              QStringLiteral("unchecked") } } },
        { QStringLiteral("QTabWidget north"), [] { return createTabs(QTabWidget::North); },
          tabStates() },
        { QStringLiteral("QTabWidget south"), [] { return createTabs(QTabWidget::South); },
          tabStates() },
        { QStringLiteral("QTabWidget west"), [] { return createTabs(QTabWidget::West); },
          tabStates() },
        { QStringLiteral("QTabWidget east"), [] { return createTabs(QTabWidget::East); },
          tabStates() },
        { QStringLiteral("QTabWidget closable"),
          createClosableTabs,
          { normalState(), { QStringLiteral("close hover"), hoverClose, Normal } } },
        { QStringLiteral("QTabWidget scrolling"),
          createManyTabs,
          { normalState(), disabledState() } },
        { QStringLiteral("QTabWidget document"),
          [] {
              QTabWidget *const tabs = createTabs(QTabWidget::North);
              tabs->setDocumentMode(true);
              return tabs;
          },
          { normalState(), { QStringLiteral("focus"), focusTab, Normal } } },
        { QStringLiteral("QToolBox"),
          createToolBox,
          { normalState(),
            { QStringLiteral("hover"), toolBoxTab(1, hover()), Normal },
            disabledState() } },
        { QStringLiteral("QSplitter horizontal"),
          [] { return createSplitter(Qt::Horizontal); },
          { normalState(), { QStringLiteral("hover"), hoverHandle, Normal } } },
        { QStringLiteral("QSplitter vertical"),
          [] { return createSplitter(Qt::Vertical); },
          { normalState(), { QStringLiteral("hover"), hoverHandle, Normal } } },
        { QStringLiteral("QScrollArea"), createScrollArea, { normalState(), disabledState() } },
        { QStringLiteral("QDockWidget"),
          createDocks,
          { normalState(),
            { QStringLiteral("close hover"), child("qt_dockwidget_closebutton", hover()), Normal },
            { QStringLiteral("float hover"), child("qt_dockwidget_floatbutton", hover()), Normal },
            disabledState() } },
        { QStringLiteral("QMdiArea"),
          createMdi,
          { normalState(), { QStringLiteral("maximised"), maximiseSubWindow, Normal } } },
    };
    return specimens;
}
