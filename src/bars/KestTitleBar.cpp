// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestTitleBar.h"

#include "Util.h"
#include "ui_KestTitleBar.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtCore/QVariant>
#include <QtGui/QActionEvent>
#include <QtGui/QCursor>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOption>

namespace {

const int IconGap = 16; // pixels between the icon and what follows it

const char GeoRateProperty[] = "geoRate";

} // namespace

class KestTitleBarPrivate
{
public:
    QPixmap iconPixmap;
    QPointer<QMenuBar> menuBar;
    bool iconVisible = true;
    bool customIcon = false;
    QList<std::shared_ptr<KestWidgetItem>> items;
    QSize iconSize = QSize(32, 32);
    QSize iconPos = QSize(8, 4);
    QSize actionIconSize = QSize(32, 32);

    // In device-independent pixels.
    QSize pixmapSize() const
    {
        return (QSizeF(iconPixmap.size()) / iconPixmap.devicePixelRatio()).toSize();
    }
};

KestTitleBar::KestTitleBar(QWidget *parent)
    : QWidget(parent), ui(new Ui_KestTitleBar), d(new KestTitleBarPrivate)
{
    ui->setupUi(this);
    setFocusPolicy(Qt::StrongFocus);
    connect(ui->closeBtn, &QAbstractButton::clicked, this, &KestTitleBar::onCloseBtn);
    connect(ui->minimumSizeBtn, &QAbstractButton::clicked, this, &KestTitleBar::onMinimumSizeBtn);
    connect(ui->maximumSizeBtn, &QAbstractButton::clicked, this, &KestTitleBar::onMaximumSizeBtn);
    if (parent)
        parent->installEventFilter(this);
}

KestTitleBar::~KestTitleBar()
{
    delete ui;
    // The items delete their widgets while those still exist.
    delete d;
}

void KestTitleBar::setMenuBar(QMenuBar *menuBar)
{
    if (d->menuBar == menuBar)
        return;
    Util::hideAndDeleteLater(d->menuBar);
    if (d->menuBar)
        d->menuBar->setParent(nullptr);
    d->menuBar = menuBar;
    if (menuBar) {
        menuBar->setAutoFillBackground(false);
        menuBar->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
        ui->menuLayout->addWidget(menuBar);
    }
    update();
}

QMenuBar *KestTitleBar::menuBar() const
{
    if (!d->menuBar) {
        auto *self = const_cast<KestTitleBar *>(this);
        self->setMenuBar(new QMenuBar(self));
    }
    return d->menuBar;
}

bool KestTitleBar::iconIsVisible() const
{
    return d->iconVisible;
}

void KestTitleBar::setIconVisible(bool visible)
{
    d->iconVisible = visible;
    setLeftMargin(visible ? d->pixmapSize().width() + d->iconPos.width() + IconGap : 0);
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
    d->iconPixmap = pixmap;
    d->customIcon = true;
    setLeftMargin(d->pixmapSize().width() + d->iconPos.width() + IconGap);
    update();
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
    // With the pixels for the size that it is scaled to when it is painted.
    d->iconPixmap = Util::iconPixmap(icon, d->iconSize.height(), QIcon::Off,
                                     devicePixelRatioF() * qMax(1.0, scaleRate()));
    setLeftMargin(d->pixmapSize().width() + d->iconPos.width() + IconGap);
    update();
}

void KestTitleBar::onCloseBtn()
{
    window()->close();
}

void KestTitleBar::onMaximumSizeBtn()
{
    // The window jumps away below the pointer, and the button would never hear that it left.
    ui->maximumSizeBtn->hide();
    ui->maximumSizeBtn->setAttribute(Qt::WA_UnderMouse, false);
    if (window()->isMaximized() || window()->isFullScreen())
        window()->showNormal();
    else
        window()->showMaximized();
    ui->maximumSizeBtn->show();
}

void KestTitleBar::onMinimumSizeBtn()
{
    window()->showMinimized();
}

bool KestTitleBar::event(QEvent *event)
{
    if (event->type() == QEvent::DynamicPropertyChange
        && static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName() == GeoRateProperty) {
        updateWindowIcon();
    }
    return QWidget::event(event);
}

void KestTitleBar::showEvent(QShowEvent *event)
{
    setAttribute(Qt::WA_Mapped);
    if (const QWidget *parent = parentWidget()) {
        // Buttons are only hidden here: whoever hid one for another reason wants it hidden.
        const Qt::WindowFlags flags = parent->windowFlags();
        if (!flags.testFlag(Qt::WindowCloseButtonHint))
            ui->closeBtn->hide();
        if (!flags.testFlag(Qt::WindowMinimizeButtonHint))
            ui->minimumSizeBtn->hide();
        if (!flags.testFlag(Qt::WindowMaximizeButtonHint))
            ui->maximumSizeBtn->hide();
        ui->maximumSizeBtn->setMaximumSized(parent->windowState() & Qt::WindowMaximized);
    }
    QWidget::showEvent(event);
}

void KestTitleBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);

    if (!d->iconPixmap.isNull() && (d->iconVisible || d->customIcon))
        painter.drawPixmap(doIconRect(), d->iconPixmap);

    if (!parentWidget())
        return;
    const QString title = parentWidget()->windowTitle();
    const int textWidth = fontMetrics().size(Qt::TextSingleLine, title).width();
    painter.setFont(font());
    painter.setPen(palette().brush(QPalette::Current, QPalette::WindowText).color());
    QTextOption textOption(Qt::AlignHCenter | Qt::AlignVCenter);
    textOption.setWrapMode(QTextOption::NoWrap);
    painter.drawText(QRectF(titlePosition(textWidth), 0, textWidth, height()), title, textOption);
}

void KestTitleBar::actionEvent(QActionEvent *event)
{
    QAction *const action = event->action();
    if (event->type() == QEvent::ActionAdded) {
        const auto item =
            std::make_shared<KestWidgetItem>(action, Qt::Horizontal, d->actionIconSize, this);
        connect(this, &KestTitleBar::actionIconSizeChanged, item.get(),
                &KestWidgetItem::iconSizeChanged);
        Util::addItem(item, d->items, event->before(), ui->actionLayout);
        return;
    }
    // A change is not told from a removal: what a button can follow reaches it without the bar.
    const std::shared_ptr<KestWidgetItem> item = Util::find(action, d->items);
    if (!item)
        return;
    d->items.removeOne(item);
    if (QWidget *widget = item->widget())
        ui->actionLayout->removeWidget(widget);
}

bool KestTitleBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != parent() || !watched->isWidgetType())
        return false;
    const auto *window = static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::WindowStateChange:
        ui->maximumSizeBtn->setMaximumSized(window->windowState() & Qt::WindowMaximized);
        break;
    case QEvent::WindowIconChange:
    case QEvent::ApplicationWindowIconChange:
        updateWindowIcon();
        break;
    case QEvent::WindowTitleChange:
        update();
        break;
    case QEvent::Resize:
        if (window->windowFlags().testFlag(Qt::WindowMaximizeButtonHint))
            ui->maximumSizeBtn->setHidden(window->minimumSize() == window->maximumSize());
        // A window manager maximises in its own time, long after the button was shown again.
        if (ui->maximumSizeBtn->underMouse())
            QTimer::singleShot(0, this, [this] { releaseMaximumSizeButton(); });
        break;
    default:
        break;
    }
    return false;
}

QRect KestTitleBar::doIconRect() const
{
    const qreal factor = scaleRate();
    const QSize pixmapSize = d->pixmapSize();
    QSize size(qRound(pixmapSize.width() * factor), qRound(pixmapSize.height() * factor));
    const int room = height() - 2 * d->iconPos.height();
    if (room < size.height())
        size = size.scaled(QSize(size.width(), room), Qt::KeepAspectRatio);
    return QRect(QPoint(d->iconPos.width(), (height() - size.height()) / 2), size);
}

void KestTitleBar::releaseMaximumSizeButton()
{
    QWidget *const button = ui->maximumSizeBtn;
    if (!button->underMouse() || button->rect().contains(button->mapFromGlobal(QCursor::pos())))
        return;
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(button, &leave);
}

qreal KestTitleBar::scaleRate() const
{
    const QVariant rate = property(GeoRateProperty);
    return rate.isNull() ? 1.0 : rate.toReal();
}

void KestTitleBar::setLeftMargin(int margin)
{
    ui->horizontalLayout->setContentsMargins(margin, 0, 0, 0);
}

int KestTitleBar::titlePosition(int textWidth) const
{
    if (!d->menuBar)
        return d->iconPos.width() + doIconRect().width() + IconGap;
    const int menuRight = d->menuBar->geometry().right();
    const int centered = (width() - textWidth) / 2;
    // A title that would run into the menu bar moves to the left of the free space's middle.
    return centered > menuRight ? centered : (width() - menuRight - textWidth) / 2;
}
