// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestWindow.h"

#include "BarTabOrder.h"
#include "KestNavigationBar.h"
#include "KestPlatformDelegate.h"
#include "KestStyleSheet.h"
#include "KestTitleBar.h"
#include "QtVersions.h"
#include "Util.h"

#include <QtCore/QDebug>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QVariant>
#include <QtGui/QIcon>
#include <QtGui/QResizeEvent>
#include <QtGui/QStatusTipEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QVBoxLayout>

#include <optional>
#include <typeinfo>

namespace {

const QSize InitialSize(160, 160); // pixels
const int ScreenCheckDelayMs = 10;

const char OriginFontProperty[] = "originFont";
const char OriginIconSizeProperty[] = "originIconSize";

template <class Bar>
bool saveBarSize(QWidget *widget)
{
    const auto *bar = qobject_cast<Bar *>(widget);
    if (!bar)
        return false;
    const QPointer<QWidget> guard(widget);
    const QSize iconSize = bar->iconSize();
    widget->setProperty(OriginFontProperty, bar->font());
    if (guard)
        widget->setProperty(OriginIconSizeProperty, iconSize);
    return true;
}

} // namespace

class KestWindowPrivate
{
public:
    // Plain widgets, since that is all they still are to events that they send while they die.
    QPointer<QWidget> titleBar;
    QPointer<QWidget> navigationBar;
    QPointer<QStatusBar> statusBar;
    QPointer<QWidget> centralWidget;
    KestPlatformDelegate *delegate = nullptr;
    bool autoDPIScale = true;
    QSize originSize; // what the window was given before it was first shown
    QTimer *dpiTimer = nullptr;

    std::optional<QSize> takeCentralWidget(KestWindow *window, QLayout *row, QWidget *widget);
};

// Makes the widget the central one. Returns the size that the host gave it, or nothing where there
// is none to go on with: another one, or no window any more.
std::optional<QSize> KestWindowPrivate::takeCentralWidget(KestWindow *window, QLayout *row,
                                                          QWidget *widget)
{
    QWidget *const old = centralWidget;
    if (old && old == widget)
        return std::nullopt;
    const QPointer<KestWindow> guard(window);
    centralWidget = widget;
    const auto isCurrent = [&guard, this, widget] {
        return guard && widget && centralWidget == widget;
    };
    Util::hideAndDeleteLater(old);
    if (!isCurrent())
        return std::nullopt;
    // The layout may change the size at any time from now on.
    const QSize size = widget->size();
    widget->setAutoFillBackground(true);
    row->addWidget(widget);
    if (!isCurrent())
        return std::nullopt;
    widget->installEventFilter(window);
    return size;
}

class KestWindowLayouts
{
public:
    explicit KestWindowLayouts(QWidget *window);

    QGridLayout *gridLayout;
    QVBoxLayout *verticalLayout;
    QVBoxLayout *titleLayout;
    QVBoxLayout *menuBarLayout;
    QVBoxLayout *contentLayout;
    QVBoxLayout *statusBarLayout;

private:
    QVBoxLayout *addRow(const QString &name);
};

KestWindowLayouts::KestWindowLayouts(QWidget *window)
    : gridLayout(new QGridLayout(window)), verticalLayout(new QVBoxLayout)
{
    gridLayout->setObjectName(QStringLiteral("gridLayout"));
    gridLayout->setSpacing(0);
    gridLayout->setContentsMargins(0, 0, 0, 0);
    verticalLayout->setObjectName(QStringLiteral("verticalLayout"));
    verticalLayout->setSpacing(0);

    titleLayout = addRow(QStringLiteral("titleLayout"));
    titleLayout->setSizeConstraint(QLayout::SetMinimumSize);
    menuBarLayout = addRow(QStringLiteral("menuBarLayout"));
    menuBarLayout->setSizeConstraint(QLayout::SetMinimumSize);
    contentLayout = addRow(QStringLiteral("contentLayout"));
    statusBarLayout = addRow(QStringLiteral("statusBarLayout"));
    statusBarLayout->setSizeConstraint(QLayout::SetMinimumSize);
    verticalLayout->setStretchFactor(contentLayout, 1);

    gridLayout->addLayout(verticalLayout, 0, 0);
    gridLayout->setAlignment(verticalLayout, Qt::AlignLeft | Qt::AlignTop);
}

QVBoxLayout *KestWindowLayouts::addRow(const QString &name)
{
    auto *row = new QVBoxLayout;
    row->setObjectName(name);
    verticalLayout->addLayout(row);
    return row;
}

KestWindow::KestWindow(QWidget *parent) : QWidget(parent), d(new KestWindowPrivate)
{
    d->titleBar = new KestTitleBar(this);
    d->titleBar->installEventFilter(this);

    if (objectName().isEmpty())
        setObjectName(QStringLiteral("KestWindow"));
    resize(InitialSize);
    layouts = new KestWindowLayouts(this);
    QMetaObject::connectSlotsByName(this);

    d->centralWidget = new QWidget(this);
    layouts->titleLayout->addWidget(d->titleBar);
    layouts->contentLayout->addWidget(d->centralWidget);
    d->centralWidget->installEventFilter(this);

    d->delegate = createPlatformDelegate(this, d->titleBar, Qt::Window);

    d->dpiTimer = new QTimer(this);
    d->dpiTimer->setSingleShot(true);
    connect(d->dpiTimer, &QTimer::timeout, this, &KestWindow::adaptScreenDPI);
}

KestWindow::~KestWindow()
{
    delete layouts;
    delete d;
}

KestTitleBar *KestWindow::titleBar() const
{
    if (d->titleBar)
        return static_cast<KestTitleBar *>(d->titleBar.data());
    const QPointer<const KestWindow> guard(this);
    auto *self = const_cast<KestWindow *>(this);
    self->setTitleBar(new KestTitleBar(self));
    return guard ? static_cast<KestTitleBar *>(d->titleBar.data()) : nullptr;
}

void KestWindow::setTitleBar(KestTitleBar *bar)
{
    QWidget *const old = d->titleBar;
    if (old && old == bar)
        return;
    // It is the window's before anybody hears of it: whoever sets another one then is the last.
    const QPointer<KestWindow> guard(this);
    d->titleBar = bar;
    d->delegate->removeMoveBar(old);
    Util::hideAndDeleteLater(old);
    if (!guard || d->titleBar != bar)
        return;
    if (!bar) {
        d->delegate->addMoveBar(d->navigationBar);
        return;
    }
    bar->installEventFilter(this);
    layouts->titleLayout->addWidget(bar);
    if (!guard || d->titleBar != bar)
        return;
    d->delegate->removeMoveBar(d->navigationBar);
    // Else it becomes a move bar when it is shown.
    if (bar->isVisible())
        d->delegate->addMoveBar(bar);
}

KestNavigationBar *KestWindow::navigationBar() const
{
    if (d->navigationBar)
        return static_cast<KestNavigationBar *>(d->navigationBar.data());
    const QPointer<const KestWindow> guard(this);
    auto *self = const_cast<KestWindow *>(this);
    self->setNavigationBar(new KestNavigationBar(self));
    return guard ? static_cast<KestNavigationBar *>(d->navigationBar.data()) : nullptr;
}

void KestWindow::setNavigationBar(KestNavigationBar *bar)
{
    QWidget *const old = d->navigationBar;
    if (old && old == bar)
        return;
    const QPointer<KestWindow> guard(this);
    d->navigationBar = bar;
    d->delegate->removeMoveBar(old);
    Util::hideAndDeleteLater(old);
    if (!bar || !guard || d->navigationBar != bar)
        return;
    layouts->menuBarLayout->addWidget(bar);
    if (!guard || d->navigationBar != bar)
        return;
    if (!d->titleBar || !d->titleBar->isVisible())
        d->delegate->addMoveBar(bar);
}

QStatusBar *KestWindow::statusBar() const
{
    if (d->statusBar)
        return d->statusBar;
    const QPointer<const KestWindow> guard(this);
    auto *self = const_cast<KestWindow *>(this);
    auto *bar = new QStatusBar(self);
    bar->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    self->setStatusBar(bar);
    return guard ? d->statusBar.data() : nullptr;
}

void KestWindow::setStatusBar(QStatusBar *bar)
{
    QStatusBar *const old = d->statusBar;
    if (old && old == bar)
        return;
    const QPointer<KestWindow> guard(this);
    d->statusBar = bar;
    Util::hideAndDeleteLater(old);
    if (bar && guard && d->statusBar == bar)
        layouts->statusBarLayout->addWidget(bar);
}

QMenuBar *KestWindow::menuBar() const
{
    return d->titleBar ? titleBar()->menuBar() : nullptr;
}

void KestWindow::setMenuBar(QMenuBar *bar)
{
    if (d->titleBar)
        titleBar()->setMenuBar(bar);
}

QWidget *KestWindow::centralWidget() const
{
    return d->centralWidget;
}

void KestWindow::setCentralWidget(QWidget *widget)
{
    const QPointer<KestWindow> guard(this);
    const std::optional<QSize> size = d->takeCentralWidget(this, layouts->contentLayout, widget);
    if (!size)
        return;
    const auto isCurrent = [&guard, this, widget] { return guard && d->centralWidget == widget; };
    setWindowTitle(widget->windowTitle());
    if (!isCurrent())
        return;
    const KestTitleBar *const bar = titleBar();
    if (!isCurrent())
        return;
    resize(size->width(), size->height() + (bar ? bar->height() : 0));
    if (isCurrent())
        setWindowIcon(widget->windowIcon());
}

void KestWindow::addFormWidget(QWidget *widget)
{
    if (auto *menus = qobject_cast<QMenuBar *>(widget))
        setMenuBar(menus);
    else if (auto *status = qobject_cast<QStatusBar *>(widget))
        setStatusBar(status);
    else if (auto *navigation = qobject_cast<KestNavigationBar *>(widget))
        setNavigationBar(navigation);
    else if (widget)
        d->takeCentralWidget(this, layouts->contentLayout, widget);
}

void KestWindow::addMoveBar(QWidget *widget)
{
    d->delegate->addMoveBar(widget);
}

void KestWindow::removeMoveBar(QWidget *widget)
{
    d->delegate->removeMoveBar(widget);
}

void KestWindow::autoDPIScale(bool on)
{
    d->autoDPIScale = on;
}

void KestWindow::ChangeObjectSizeAndFontSize(QObject *object, double geoRate, double fontRate)
{
    KestStyleSheet::ChangeObjectSizeAndFontSize(object, geoRate, fontRate);
}

void KestWindow::saveObjectSize(QObject *object)
{
    if (!object)
        return;
    // A widget may delete others when it hears of its property.
    QList<QPointer<QWidget>> children;
    for (QObject *child : object->children()) {
        if (child->isWidgetType())
            children.append(static_cast<QWidget *>(child));
    }
    for (const QPointer<QWidget> &child : qAsConst(children)) {
        if (!child || saveBarSize<KestTitleBar>(child) || saveBarSize<KestNavigationBar>(child))
            continue;
        child->setProperty(OriginFontProperty, child->font());
        saveObjectSize(child);
    }
}

void KestWindow::adaptScreenDPI()
{ }

bool KestWindow::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::WindowActivate:
        // Qt gives the first focus right after these.
        putBarsLastInTabOrder(this, { d->navigationBar, d->titleBar });
        break;
    case QEvent::StatusTip:
        if (d->statusBar)
            d->statusBar->showMessage(static_cast<QStatusTipEvent *>(event)->tip());
        else
            event->ignore();
        return true;
    case QEvent::HoverEnter:
    case QEvent::HoverLeave: {
        // Qt would paint all of the window anew; what a subclass paints is its own.
        const QPointer<KestWindow> guard(this);
        if (typeid(*this) == typeid(KestWindow) && !platformChangesWithHover(d->delegate))
            return true;
        if (!guard)
            return true;
        break;
    }
    default:
        break;
    }
    return QWidget::event(event);
}

bool KestWindow::eventFilter(QObject *watched, QEvent *event)
{
    const QPointer<KestWindow> guard(this);
    // Qt must not go on with a widget that a host deletes meanwhile.
    const QPointer<QObject> receiver(watched);
    const QEvent::Type type = event->type();
    if (watched == d->titleBar && d->delegate) {
        // One of the two bars moves the window: the title bar while it is shown.
        if (type == QEvent::Show) {
            d->delegate->addMoveBar(d->titleBar);
            d->delegate->removeMoveBar(d->navigationBar);
        } else if (type == QEvent::Hide || type == QEvent::Close) {
            d->delegate->removeMoveBar(d->titleBar);
            d->delegate->addMoveBar(d->navigationBar);
        }
    } else if (type == QEvent::WindowTitleChange && watched == d->centralWidget) {
        setWindowTitle(d->centralWidget->windowTitle());
        // It was given a size while hidden.
        if (guard && watched == d->centralWidget
            && d->centralWidget->testAttribute(Qt::WA_PendingResizeEvent)) {
            resize(d->centralWidget->size());
        }
        return receiver.isNull();
    } else if (type == QEvent::Show && watched == d->centralWidget && !event->spontaneous()
               && focusWidget() == d->titleBar) {
        // The bar has the focus from a click on one of its buttons, or for want of anything else.
        focusNextPrevChild(true);
        return receiver.isNull();
    }
    if (type == QEvent::ScreenChangeInternal) {
        qDebug() << "KestWindow::eventFilter QEvent::ScreenChangeInternal screenNum="
                 << screenNumber(this);
    }
    return QWidget::eventFilter(watched, event);
}

bool KestWindow::focusNextPrevChild(bool next)
{
    putBarsLastInTabOrder(this, { d->navigationBar, d->titleBar });
    return QWidget::focusNextPrevChild(next);
}

bool KestWindow::nativeEvent(const QByteArray &eventType, void *message, KestNativeResult *result)
{
    return platformNativeEvent(d->delegate, eventType, message, result)
        || QWidget::nativeEvent(eventType, message, result);
}

void KestWindow::resizeEvent(QResizeEvent *event)
{
    if (testAttribute(Qt::WA_PendingResizeEvent))
        d->originSize = event->size();
    d->dpiTimer->start(ScreenCheckDelayMs);
    QWidget::resizeEvent(event);
}
