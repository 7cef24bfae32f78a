// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestTitleBar.h"

#include "KestAccessibleParts.h"
#include "KestMaximumSizeButton.h"
#include "MenuBarItem.h"
#include "QtVersions.h"
#include "QuietLayout.h"
#include "Util.h"
#include "ui_KestTitleBar.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtCore/QVariant>
#include <QtGui/QActionEvent>
#include <QtGui/QCursor>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtGui/QWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>

#include <array>
#include <utility>

namespace {

const int IconGap = 16; // pixels between the icon and what follows it
const int MaximumIconPixels = 512; // device pixels that an icon is rendered with on either side

const char GeoRateProperty[] = "geoRate";
const char ModifiedMark[] = "*"; // in the words of Qt's own translations

// Whatever a host stores, sums of a few lengths stay within an int.
int bounded(int length)
{
    return qBound(-QWIDGETSIZE_MAX, length, QWIDGETSIZE_MAX);
}

void swapSides(QLayout *layout)
{
    const QMargins margins = layout->contentsMargins();
    layout->setContentsMargins(margins.right(), margins.top(), margins.left(), margins.bottom());
}

// What Qt hands to the window system as the caption: every odd run of placeholders ends in the mark
// of a modified window, and a pair stands for a placeholder that is meant to be read.
QString caption(const QWidget *window)
{
    const QLatin1String placeholder("[*]");
    QString title = window->windowTitle();
    int from = title.indexOf(placeholder);
    if (from < 0)
        return title;
    const bool marked = window->isWindowModified()
        && window->style()->styleHint(QStyle::SH_TitleBar_ModifyNotification, nullptr, window);
    while (from >= 0) {
        int end = from;
        while (QStringView(title).mid(end).startsWith(placeholder))
            end += placeholder.size();
        if ((end - from) / placeholder.size() % 2 == 1) {
            title.replace(end - placeholder.size(), placeholder.size(),
                          marked ? QWidget::tr(ModifiedMark) : QString());
        }
        from = title.indexOf(placeholder, end);
    }
    return title.replace(QLatin1String("[*][*]"), placeholder);
}

} // namespace

class KestTitleBarPrivate
{
public:
    explicit KestTitleBarPrivate(KestTitleBar *bar) : q(bar), quiet(bar) { }

    QSize pixmapSize() const;
    QSize position() const;
    qreal scaleRate() const;
    QRect iconRect() const;
    const QPixmap &drawnIcon(const QSize &size);
    int titlePosition(int textWidth) const;
    QRect mirrored(const QRect &rect) const;

    void setIcon(const QIcon &newIcon, const QPixmap &pixmap);
    void setLeftMargin(int margin);
    void makeRoomForIcon();
    void followParent();
    void followState();
    void catchUpWithState();
    bool parentIsMaximized() const;
    void releaseMaximumSizeButton();
    void nameButtons();

    KestTitleBar *const q;
    QPixmap iconPixmap;
    QPointer<QMenuBar> menuBar;
    bool iconVisible = true;
    bool customIcon = false;
    QList<std::shared_ptr<KestWidgetItem>> items;
    QSet<QAction *> shown; // for looking up
    QuietLayout quiet;
    QSize iconSize = QSize(32, 32);
    QSize iconPos = QSize(8, 4);
    QSize actionIconSize = QSize(32, 32);

    QIcon icon; // what the pixmap was taken from; null where it is the host's own
    QPixmap scaledPixmap; // the same icon, with the pixels for another size

    QPointer<QWidget> watched;
    QMetaObject::Connection captionConnection;
    // Weak, since they can be found, and deleted, by their names.
    QPointer<QWidget> closeBtn;
    QPointer<QWidget> minimumSizeBtn;
    QPointer<KestMaximumSizeButton> maximumSizeBtn;
    std::array<QString, 3> names; // that the bar gave the buttons
};

// In device-independent pixels.
QSize KestTitleBarPrivate::pixmapSize() const
{
    return (QSizeF(iconPixmap.size()) / iconPixmap.devicePixelRatio()).toSize();
}

QSize KestTitleBarPrivate::position() const
{
    return QSize(bounded(iconPos.width()), bounded(iconPos.height()));
}

qreal KestTitleBarPrivate::scaleRate() const
{
    const QVariant property = q->property(GeoRateProperty);
    const qreal rate = isNull(property) ? 1.0 : property.toReal();
    return qIsFinite(rate) ? rate : 1.0;
}

// As it is from left to right.
QRect KestTitleBarPrivate::iconRect() const
{
    const QSize unscaled = pixmapSize();
    const qreal largest = qreal(QWIDGETSIZE_MAX) / qMax(unscaled.width(), unscaled.height());
    const qreal factor = qBound(-largest, scaleRate(), largest);
    QSize size(qRound(unscaled.width() * factor), qRound(unscaled.height() * factor));
    const int room = q->height() - 2 * position().height();
    if (room < size.height()) {
        size = size.scaled(QSize(size.width(), room), Qt::KeepAspectRatio);
        size = QSize(bounded(size.width()), bounded(size.height()));
    }
    return QRect(QPoint(position().width(), (q->height() - size.height()) / 2), size);
}

// The pixmap as it is painted in the given size: the window's icon with the pixels for it.
const QPixmap &KestTitleBarPrivate::drawnIcon(const QSize &size)
{
    if (icon.isNull() || size == pixmapSize() || size.isEmpty())
        return iconPixmap;
    QSize pixels = size * q->devicePixelRatioF();
    const int most = qMax(MaximumIconPixels, qMax(iconPixmap.width(), iconPixmap.height()));
    if (pixels.width() > most || pixels.height() > most)
        pixels = pixels.scaled(most, most, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    if (pixels != scaledPixmap.size())
        scaledPixmap = Util::iconPixels(icon, pixels);
    return scaledPixmap;
}

// As it is from left to right.
int KestTitleBarPrivate::titlePosition(int textWidth) const
{
    if (!menuBar)
        return position().width() + iconRect().width() + IconGap;
    const int menuRight = mirrored(menuBar->geometry()).right();
    const int centered = (q->width() - textWidth) / 2;
    // A title that would run into the menu bar moves to the left of the free space's middle.
    return centered > menuRight ? centered : (q->width() - menuRight - textWidth) / 2;
}

// Every position holds from the edge that the reading starts at.
QRect KestTitleBarPrivate::mirrored(const QRect &rect) const
{
    return QStyle::visualRect(q->layoutDirection(), q->rect(), rect);
}

void KestTitleBarPrivate::setIcon(const QIcon &newIcon, const QPixmap &pixmap)
{
    icon = newIcon;
    iconPixmap = pixmap;
    scaledPixmap = QPixmap();
    makeRoomForIcon();
    q->update();
}

void KestTitleBarPrivate::setLeftMargin(int margin)
{
    const bool mirror = q->isRightToLeft();
    q->layout()->setContentsMargins(mirror ? 0 : margin, 0, mirror ? margin : 0, 0);
}

void KestTitleBarPrivate::makeRoomForIcon()
{
    setLeftMargin(pixmapSize().width() + position().width() + IconGap);
}

void KestTitleBarPrivate::followParent()
{
    QWidget *const parent = q->parentWidget();
    if (watched == parent)
        return;
    if (watched)
        watched->removeEventFilter(q);
    watched = parent;
    if (!parent)
        return;
    parent->installEventFilter(q);
    q->updateWindowIcon();
    catchUpWithState();
}

void KestTitleBarPrivate::followState()
{
    if (!maximumSizeBtn || !q->parentWidget())
        return;
    const QPointer<KestTitleBar> guard(q);
    maximumSizeBtn->setMaximumSized(parentIsMaximized());
    if (guard)
        nameButtons();
}

// For when the state may have changed unheard of. The button is polished anew whenever it is told.
void KestTitleBarPrivate::catchUpWithState()
{
    if (maximumSizeBtn && maximumSizeBtn->maximumSized() != parentIsMaximized())
        followState();
}

bool KestTitleBarPrivate::parentIsMaximized() const
{
    const QWidget *const parent = q->parentWidget();
    return parent && parent->windowState() & Qt::WindowMaximized;
}

void KestTitleBarPrivate::releaseMaximumSizeButton()
{
    if (!maximumSizeBtn || !maximumSizeBtn->underMouse()
        || maximumSizeBtn->rect().contains(maximumSizeBtn->mapFromGlobal(QCursor::pos())))
        return;
    const QPointer<QWidget> button(maximumSizeBtn.data());
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(button, &leave);
    // A widget that hears of it so is not painted anew.
    if (button)
        button->update();
}

// For screen readers, since the buttons have no texts. A name that a host gave stays.
void KestTitleBarPrivate::nameButtons()
{
    const std::pair<QPointer<QWidget>, QString> buttons[] = {
        //: What a screen reader calls the button that closes the window
        { closeBtn, KestTitleBar::tr("Close") },
        //: What a screen reader calls the button that minimises the window
        { minimumSizeBtn, KestTitleBar::tr("Minimize") },
        { maximumSizeBtn.data(),
          maximumSizeBtn && maximumSizeBtn->maximumSized()
              //: What a screen reader calls the button of a maximised window that restores it
              ? KestTitleBar::tr("Restore")
              //: What a screen reader calls the button that maximises the window
              : KestTitleBar::tr("Maximize") }
    };
    const QPointer<KestTitleBar> guard(q);
    for (size_t i = 0; i < names.size() && guard; ++i) {
        const auto &[button, name] = buttons[i];
        const QString before = std::exchange(names[i], name);
        if (button && name != before && button->accessibleName() == before)
            button->setAccessibleName(name);
    }
}

KestTitleBar::KestTitleBar(QWidget *parent)
    : QWidget(parent), ui(new Ui_KestTitleBar), d(new KestTitleBarPrivate(this))
{
    KestAccessibleParts::install();
    ui->setupUi(this);
    d->closeBtn = ui->closeBtn;
    d->minimumSizeBtn = ui->minimumSizeBtn;
    d->maximumSizeBtn = ui->maximumSizeBtn;
    d->nameButtons();
    if (isRightToLeft())
        swapSides(ui->actionLayout);
    setFocusPolicy(Qt::StrongFocus);
    connect(ui->closeBtn, &QAbstractButton::clicked, this, &KestTitleBar::onCloseBtn);
    connect(ui->minimumSizeBtn, &QAbstractButton::clicked, this, &KestTitleBar::onMinimumSizeBtn);
    connect(ui->maximumSizeBtn, &QAbstractButton::clicked, this, &KestTitleBar::onMaximumSizeBtn);
    d->followParent();
}

KestTitleBar::~KestTitleBar()
{
    // The last chance for others to hear of anything, while everything is still there: the items
    // delete their buttons, and a button that has the focus passes it on.
    while (!d->items.isEmpty())
        d->items.takeLast();
    delete ui;
    delete d;
}

void KestTitleBar::setMenuBar(QMenuBar *menuBar)
{
    if (d->menuBar == menuBar)
        return;
    const QPointer<QMenuBar> old(d->menuBar.data());
    const QPointer<KestTitleBar> guard(this);
    d->menuBar = menuBar;
    update();
    Util::hideAndDeleteLater(old);
    if (old)
        old->setParent(nullptr);
    // Whoever heard of that may have set another one.
    if (!guard || !d->menuBar || d->menuBar != menuBar)
        return;
    menuBar->setAutoFillBackground(false);
    menuBar->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    ui->menuLayout->addWidget(menuBar);
    delete ui->menuLayout->takeAt(ui->menuLayout->indexOf(menuBar));
    // Whoever heard of its new parent may have set another one.
    if (d->menuBar == menuBar)
        ui->menuLayout->addItem(new MenuBarItem(menuBar));
}

QMenuBar *KestTitleBar::menuBar() const
{
    if (d->menuBar)
        return d->menuBar;
    auto *self = const_cast<KestTitleBar *>(this);
    const QPointer<KestTitleBar> guard(self);
    self->setMenuBar(new QMenuBar(self));
    return guard ? d->menuBar.data() : nullptr;
}

bool KestTitleBar::iconIsVisible() const
{
    return d->iconVisible;
}

void KestTitleBar::setIconVisible(bool visible)
{
    d->iconVisible = visible;
    if (visible)
        d->makeRoomForIcon();
    else
        d->setLeftMargin(0);
    update();
}

QSize KestTitleBar::iconSize() const
{
    return d->iconSize;
}

void KestTitleBar::setIconSize(const QSize &size)
{
    d->iconSize = size;
}

void KestTitleBar::setIconPixmap(const QPixmap &pixmap)
{
    d->iconVisible = false;
    d->customIcon = true;
    d->setIcon(QIcon(), pixmap);
}

QSize KestTitleBar::getIconPos() const
{
    return d->iconPos;
}

void KestTitleBar::setIconPos(QSize pos)
{
    d->iconPos = pos;
}

int KestTitleBar::getLeftMargin() const
{
    return d->iconPos.width();
}

QSize KestTitleBar::getActionIconSize() const
{
    return d->actionIconSize;
}

void KestTitleBar::setActionIconSize(const QSize &size)
{
    if (d->actionIconSize == size)
        return;
    d->actionIconSize = size;
    Q_EMIT actionIconSizeChanged(size);
}

void KestTitleBar::updateWindowIcon()
{
    if (!d->iconVisible || !parentWidget())
        return;
    const QIcon icon = parentWidget()->windowIcon();
    if (icon.availableSizes(QIcon::Normal, QIcon::Off).isEmpty())
        return;
    d->setIcon(icon, Util::iconPixmap(icon, d->iconSize.height(), QIcon::Off, devicePixelRatioF()));
}

void KestTitleBar::onCloseBtn()
{
    window()->close();
}

void KestTitleBar::onMaximumSizeBtn()
{
    const QPointer<KestTitleBar> guard(this);
    const QPointer<QWidget> button(d->maximumSizeBtn);
    // The window jumps away below the pointer, and the button would never hear that it left.
    if (button)
        button->hide();
    if (button)
        button->setAttribute(Qt::WA_UnderMouse, false);
    if (!guard)
        return;
    if (window()->isMaximized() || window()->isFullScreen())
        window()->showNormal();
    else
        window()->showMaximized();
    if (button)
        button->show();
}

void KestTitleBar::onMinimumSizeBtn()
{
    window()->showMinimized();
}

bool KestTitleBar::event(QEvent *event)
{
    d->quiet.see(event);
    switch (event->type()) {
    case QEvent::DynamicPropertyChange:
        if (static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName() == GeoRateProperty)
            update();
        break;
    case QEvent::LayoutDirectionChange:
        swapSides(ui->horizontalLayout);
        swapSides(ui->actionLayout);
        break;
    case QEvent::LanguageChange: {
        const QPointer<KestTitleBar> guard(this);
        d->nameButtons();
        if (!guard)
            return true;
        break;
    }
    case QEvent::ParentChange: {
        const QPointer<KestTitleBar> guard(this);
        d->followParent();
        if (!guard)
            return true;
        break;
    }
    default:
        break;
    }
    return QWidget::event(event);
}

void KestTitleBar::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    setAttribute(Qt::WA_Mapped);
    const QWidget *const parent = parentWidget();
    if (!parent)
        return;
    // Setting only a file path changes the caption without an event.
    disconnect(d->captionConnection);
    if (const QWindow *handle = parent->windowHandle()) {
        d->captionConnection =
            connect(handle, &QWindow::windowTitleChanged, this, qOverload<>(&QWidget::update));
    }
    // Buttons are only hidden here: whoever hid one for another reason wants it hidden.
    const QPointer<KestTitleBar> guard(this);
    const Qt::WindowFlags flags = parent->windowFlags();
    const std::pair<Qt::WindowType, QPointer<QWidget>> buttons[] = {
        { Qt::WindowCloseButtonHint, d->closeBtn },
        { Qt::WindowMinimizeButtonHint, d->minimumSizeBtn },
        { Qt::WindowMaximizeButtonHint, d->maximumSizeBtn.data() }
    };
    for (const auto &[hint, button] : buttons) {
        if (button && !flags.testFlag(hint))
            button->hide();
    }
    if (guard)
        d->catchUpWithState();
}

void KestTitleBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);

    if (!d->iconPixmap.isNull() && (d->iconVisible || d->customIcon)) {
        const QRect rect = doIconRect();
        painter.drawPixmap(rect, d->drawnIcon(rect.size()));
    }

    if (!parentWidget())
        return;
    const QString title = caption(parentWidget());
    const int textWidth = fontMetrics().size(Qt::TextSingleLine, title).width();
    painter.setFont(font());
    painter.setPen(palette().brush(QPalette::Current, QPalette::WindowText).color());
    QTextOption textOption(Qt::AlignHCenter | Qt::AlignVCenter);
    textOption.setWrapMode(QTextOption::NoWrap);
    const QRect rect(d->titlePosition(textWidth), 0, textWidth, height());
    painter.drawText(QRectF(d->mirrored(rect)), title, textOption);
}

void KestTitleBar::actionEvent(QActionEvent *event)
{
    QAction *const action = event->action();
    if (event->type() == QEvent::ActionAdded) {
        // Whoever heard of it first may have deleted the action, or taken it away again.
        if (actions().lastIndexOf(action) < 0)
            return;
        const QPointer<KestTitleBar> guard(this);
        const QuietLayout::Scope quiet(d->quiet);
        const QSize size = d->actionIconSize;
        const auto item = std::make_shared<KestWidgetItem>(action, Qt::Horizontal, size, this);
        // Whoever heard of the action or the new widget may have taken the action away again, or
        // put it elsewhere on the bar.
        if (!guard || !item->action() || !action->associatedWidgets().contains(this)
            || (d->shown.contains(action) && Util::find(action, d->items)))
            return;
        // Where a slot sets another size, the one that it was told is no longer the bar's.
        connect(this, &KestTitleBar::actionIconSizeChanged, item.get(),
                [this, shown = item.get()] { Q_EMIT shown->iconSizeChanged(d->actionIconSize); });
        if (size != d->actionIconSize)
            Q_EMIT item->iconSizeChanged(d->actionIconSize);
        d->shown.insert(action);
        Util::addItem(item, d->items, event->before(), ui->actionLayout);
        return;
    }
    // A change is not told from a removal: what a button can follow reaches it without the bar.
    std::shared_ptr<KestWidgetItem> item = Util::find(action, d->items);
    // Whoever heard of a removal first may have deleted the action, whose button is nobody's then.
    if (!item && d->shown.contains(action))
        item = Util::findOrphan(d->items);
    if (!item)
        return;
    // Or have put it on the bar again.
    if (event->type() == QEvent::ActionRemoved && item->action()
        && action->associatedWidgets().contains(this))
        return;
    const QuietLayout::Scope quiet(d->quiet, item->widget(), item.get());
    d->shown.remove(action);
    Util::takeItem(item, d->items, ui->actionLayout);
    if (ActionsTellACopyOfTheirWidgets && event->type() == QEvent::ActionChanged) {
        // The button is in it, and still to be told.
        QWidget *const button = item->isCustomWidget() ? nullptr : item->widget();
        item->release();
        Util::hideAndDeleteLater(button);
    }
    item.reset(); // its button dies while the layout is quiet
}

bool KestTitleBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != parent())
        return false;
    const QWidget *const window = parentWidget();
    // Qt must not go on with a window that a host deletes meanwhile.
    const QPointer<QObject> receiver(watched);
    switch (event->type()) {
    case QEvent::WindowStateChange:
        d->followState();
        break;
    case QEvent::WindowIconChange:
    case QEvent::ApplicationWindowIconChange:
        updateWindowIcon();
        break;
    case QEvent::WindowTitleChange:
    case QEvent::ModifiedChange:
        update();
        break;
    case QEvent::Resize:
        if (!d->maximumSizeBtn)
            break;
        // A window manager maximises in its own time, long after the button was shown again.
        if (d->maximumSizeBtn->underMouse())
            QMetaObject::invokeMethod(
                this, [this] { d->releaseMaximumSizeButton(); }, Qt::QueuedConnection);
        if (window->windowFlags().testFlag(Qt::WindowMaximizeButtonHint))
            d->maximumSizeBtn->setHidden(window->minimumSize() == window->maximumSize());
        break;
    default:
        break;
    }
    return receiver.isNull();
}

QRect KestTitleBar::doIconRect() const
{
    return d->mirrored(d->iconRect());
}
