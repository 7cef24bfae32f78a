// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Contest.h"

#include "FilledWindow.h"
#include "KestDialog.h"
#include "KestNavigationBar.h"
#include "KestTitleBar.h"
#include "KestWindow.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QHoverEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QVBoxLayout>

namespace {

const QSize ChildSize(16, 16);
const int Repaints = 100; // of the small child, in one turn
const int Hovers = 10000;

// Paints nothing itself, so that all its cost is that of what lies below it.
class Child : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override { }
};

template <class Window>
Work firstPaint()
{
    auto window = std::make_shared<std::unique_ptr<Window>>();
    return [window] {
        *window = std::make_unique<Window>();
        fillWindow(**window);
        showAndPaint(window->get());
    };
}

// What a window costs that is not the first one.
template <class Window>
Work laterPaint()
{
    auto windows = std::make_shared<std::vector<std::unique_ptr<Window>>>();
    for (int i = 0; i < 20; ++i) {
        windows->push_back(std::make_unique<Window>());
        fillWindow(*windows->back());
        showAndPaint(windows->back().get());
    }
    return [windows] {
        windows->push_back(std::make_unique<Window>());
        fillWindow(*windows->back());
        showAndPaint(windows->back().get());
    };
}

template <class Window>
std::shared_ptr<Window> shownWindow()
{
    auto window = std::make_shared<Window>();
    fillWindow(*window);
    showAndPaint(window.get());
    settle();
    return window;
}

template <class Window>
Work liveResize(int steps)
{
    const auto window = shownWindow<Window>();
    const auto painted = std::make_shared<PaintWait>(window.get());
    return [window, painted, steps] {
        for (int i = 1; i <= steps; ++i) {
            window->resize(WindowSize + QSize(i, i));
            painted->wait();
        }
    };
}

Row resizeRow(const QString &name, int steps)
{
    return { name,
             3,
             { { "KestWindow", [=] { return liveResize<KestWindow>(steps); } },
               { "QMainWindow", [=] { return liveResize<QMainWindow>(steps); } } } };
}

template <class Window>
Work maximiseAndRestore()
{
    const auto window = shownWindow<Window>();
    const auto painted = std::make_shared<PaintWait>(window.get());
    return [window, painted] {
        window->showMaximized();
        painted->wait();
        settle();
        window->showNormal();
        painted->wait();
        settle();
    };
}

template <class Window>
Work pointerEnters()
{
    const auto window = shownWindow<Window>();
    return [window] {
        const QPointF position(WindowSize.width() / 2, WindowSize.height() / 2);
        QEnterEvent enter(position, position, position);
        QCoreApplication::sendEvent(window->windowHandle(), &enter);
        settle();
    };
}

template <class Window>
Work hover()
{
    const auto window = shownWindow<Window>();
    window->setAttribute(Qt::WA_Hover);
    return [window] {
        for (int i = 0; i < Hovers; ++i) {
            const QPointF position(100 + i % 500, 300);
            QHoverEvent event(QEvent::HoverMove, position, position);
            QCoreApplication::sendEvent(window.get(), &event);
        }
    };
}

// The shells' central widgets hide what lies below them in a main window, not in a dialog.
QWidget *centre(KestDialog &dialog)
{
    return dialog.centralWidget();
}

QWidget *centre(QDialog &dialog)
{
    auto *layout = new QVBoxLayout(&dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *widget = new QWidget;
    layout->addWidget(widget);
    return widget;
}

template <class Dialog>
Work smallChild(const QSize &size, int margin)
{
    auto dialog = std::make_shared<Dialog>();
    auto *child = new Child(centre(*dialog));
    child->resize(ChildSize);
    child->move(size.width() / 2, size.height() / 2);
    dialog->layout()->setContentsMargins(margin, margin, margin, margin);
    dialog->resize(size);
    showAndPaint(dialog.get());
    settle();
    return [dialog, child] {
        for (int i = 0; i < Repaints; ++i)
            child->repaint();
    };
}

Row smallChildRow(const QString &name, const QSize &size, int margin)
{
    return { name,
             15,
             { { "KestDialog", [=] { return smallChild<KestDialog>(size, margin); } },
               { "QDialog", [=] { return smallChild<QDialog>(size, margin); } } } };
}

void fillBar(QWidget *bar)
{
    for (int i = 0; i < ActionCount; ++i) {
        auto *action = new QAction(actionIcon(), QStringLiteral("Action %1").arg(i), bar);
        bar->addAction(action);
    }
}

} // namespace

void fillMenus(QMenuBar *menuBar)
{
    for (const char *name : { "File", "Edit", "View" })
        menuBar->addMenu(QLatin1String(name))->addAction(QStringLiteral("Entry"));
}

void fillWindow(KestWindow &window)
{
    fillMenus(window.menuBar());
    fillBar(window.titleBar());
    fillBar(window.navigationBar());
    window.statusBar()->showMessage(QStringLiteral("Ready"));
    window.setCentralWidget(new QWidget);
    window.resize(WindowSize);
}

void fillWindow(QMainWindow &window)
{
    fillMenus(window.menuBar());
    fillBar(window.addToolBar(QStringLiteral("First")));
    window.addToolBarBreak();
    fillBar(window.addToolBar(QStringLiteral("Second")));
    window.statusBar()->showMessage(QStringLiteral("Ready"));
    auto *central = new QWidget;
    central->setAutoFillBackground(true);
    window.setCentralWidget(central);
    window.resize(WindowSize);
}

QVector<Row> windowRows()
{
    const QSize small(400, 300);
    const QSize large(1920, 1080);
    return {
        { "firstPaint",
          15,
          { { "KestWindow", firstPaint<KestWindow> },
            { "QMainWindow", firstPaint<QMainWindow> } } },
        { "twentyFirstWindow", 5, { { "KestWindow", laterPaint<KestWindow> } } },
        resizeRow("liveResize", 200),
        resizeRow("shortResize", 20), // enough to count
        { "maximiseAndRestore",
          15,
          { { "KestWindow", maximiseAndRestore<KestWindow> },
            { "QMainWindow", maximiseAndRestore<QMainWindow> } } },
        { "pointerEnters",
          1,
          { { "KestWindow", pointerEnters<KestWindow> },
            { "QMainWindow", pointerEnters<QMainWindow> } } },
        { "hover",
          15,
          { { "KestWindow", hover<KestWindow> }, { "QMainWindow", hover<QMainWindow> } } },
        smallChildRow("smallChild", small, 0),
        smallChildRow("smallChildInLargeWindow", large, 0),
        smallChildRow("smallChildWithLayout", small, 11),
        smallChildRow("smallChildWithLayoutInLargeWindow", large, 11),
    };
}
