// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestMessageBox.h"

#include "KestTitleBar.h"

#include <QtCore/QDebug>
#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QVBoxLayout>

namespace {

// All in pixels.
const int IconSpacing = 20;
const int SmallScreenWidth = 1024; // up to here a box may be as wide as the screen
const int ScreenMargin = 480; // what is left free beside a box on larger screens
const int WidestBox = 1000;
const int WidestUnwrapped = 500; // a text that needs more is wrapped
const int TitleRoom = 50; // for the title bar's button

struct Limits
{
    int hard; // no title makes the box wider
    int soft; // wider texts are wrapped
};

Limits limitsFor(int screenWidth)
{
    return { screenWidth <= SmallScreenWidth ? screenWidth
                                             : qMin(screenWidth - ScreenMargin, WidestBox),
             qMin(screenWidth / 2, WidestUnwrapped) };
}

QStyle::StandardPixmap standardPixmap(KestMessageBox::Icon icon)
{
    switch (icon) {
    case KestMessageBox::Information:
        return QStyle::SP_MessageBoxInformation;
    case KestMessageBox::Warning:
        return QStyle::SP_MessageBoxWarning;
    case KestMessageBox::Critical:
        return QStyle::SP_MessageBoxCritical;
    case KestMessageBox::Question:
        return QStyle::SP_MessageBoxQuestion;
    default:
        return QStyle::SP_CustomBase;
    }
}

QDialogButtonBox::StandardButton toBox(KestMessageBox::StandardButton button)
{
    return QDialogButtonBox::StandardButton(int(button));
}

QDialogButtonBox::StandardButtons toBox(KestMessageBox::StandardButtons buttons)
{
    return QDialogButtonBox::StandardButtons(int(buttons));
}

} // namespace

class KestMessageBoxPrivate
{
public:
    explicit KestMessageBoxPrivate(KestMessageBox *box);

    QAbstractButton *firstWithRole(QDialogButtonBox::ButtonRole role) const;

    QLabel *label;
    QLabel *iconLabel;
    KestMessageBox::Icon icon = KestMessageBox::NoIcon;
    QDialogButtonBox *buttonBox;
    // Weak: removed buttons are their owner's to delete.
    QPointer<QAbstractButton> clickedButton;
    QPointer<QAbstractButton> defaultButton;
    QPointer<QAbstractButton> escapeButton;
};

KestMessageBoxPrivate::KestMessageBoxPrivate(KestMessageBox *box)
    : label(new QLabel(box)), iconLabel(new QLabel(box)), buttonBox(new QDialogButtonBox(box))
{
    auto *layout = new QVBoxLayout(box->centralWidget());
    auto *message = new QHBoxLayout;
    message->setContentsMargins(0, 0, 0, 0);
    message->setSpacing(IconSpacing);
    message->addWidget(iconLabel, 0);
    message->addWidget(label, 1);
    layout->addLayout(message);
    layout->addWidget(buttonBox, 0);

    // The click is recorded before the box closes.
    QObject::connect(buttonBox, &QDialogButtonBox::clicked, box,
                     [this](QAbstractButton *button) { clickedButton = button; });
    QObject::connect(buttonBox, &QDialogButtonBox::accepted, box, &QDialog::accept);
    QObject::connect(buttonBox, &QDialogButtonBox::rejected, box, &QDialog::reject);
}

QAbstractButton *KestMessageBoxPrivate::firstWithRole(QDialogButtonBox::ButtonRole role) const
{
    const QList<QAbstractButton *> buttons = buttonBox->buttons();
    for (QAbstractButton *button : buttons) {
        if (buttonBox->buttonRole(button) == role)
            return button;
    }
    return nullptr;
}

KestMessageBox::KestMessageBox(QWidget *parent)
    : KestDialog(parent), d(new KestMessageBoxPrivate(this))
{ }

KestMessageBox::KestMessageBox(Icon icon, const QString &title, const QString &text,
                               StandardButtons buttons, QWidget *parent, Qt::WindowFlags flags)
    : KestMessageBox(parent)
{
    d->buttonBox->setStandardButtons(toBox(buttons));
    d->label->setText(text);
    setWindowTitle(title);
    setWindowFlags(flags | Qt::FramelessWindowHint | Qt::WindowCloseButtonHint);
    setIcon(icon);
}

KestMessageBox::~KestMessageBox()
{
    delete d;
}

QString KestMessageBox::text() const
{
    return d->label->text();
}

void KestMessageBox::setText(const QString &text)
{
    d->label->setText(text);
}

Qt::TextFormat KestMessageBox::textFormat() const
{
    return d->label->textFormat();
}

void KestMessageBox::setTextFormat(Qt::TextFormat format)
{
    d->label->setTextFormat(format);
}

Qt::TextInteractionFlags KestMessageBox::textInteractionFlags() const
{
    return d->label->textInteractionFlags();
}

void KestMessageBox::setTextInteractionFlags(Qt::TextInteractionFlags flags)
{
    d->label->setTextInteractionFlags(flags);
}

KestMessageBox::Icon KestMessageBox::icon() const
{
    return d->icon;
}

void KestMessageBox::setIcon(Icon icon)
{
    d->icon = icon;
    const QStyle::StandardPixmap pixmap = standardPixmap(icon);
    if (pixmap != QStyle::SP_CustomBase)
        d->iconLabel->setPixmap(style()->proxy()->standardPixmap(pixmap, nullptr));
}

void KestMessageBox::setIconPixmap(const QPixmap &pixmap)
{
    d->icon = NoIcon;
    d->iconLabel->setPixmap(pixmap);
}

KestMessageBox::StandardButtons KestMessageBox::standardButtons() const
{
    return StandardButtons(int(d->buttonBox->standardButtons()));
}

void KestMessageBox::setStandardButtons(StandardButtons buttons)
{
    d->buttonBox->setStandardButtons(toBox(buttons));
    const QList<QAbstractButton *> held = d->buttonBox->buttons();
    if (!held.contains(d->escapeButton))
        d->escapeButton = nullptr;
    if (!held.contains(d->defaultButton))
        d->defaultButton = nullptr;
    updateSize();
}

void KestMessageBox::addButton(QAbstractButton *button, ButtonRole role)
{
    if (button && !d->buttonBox->buttons().contains(button))
        d->buttonBox->addButton(button, QDialogButtonBox::ButtonRole(role));
}

QPushButton *KestMessageBox::addButton(const QString &text, ButtonRole role)
{
    auto *button = new QPushButton(text, this);
    addButton(button, role);
    return button;
}

QPushButton *KestMessageBox::addButton(StandardButton button)
{
    return d->buttonBox->addButton(toBox(button));
}

void KestMessageBox::removeButton(QAbstractButton *button)
{
    if (button)
        d->buttonBox->removeButton(button);
}

KestMessageBox::StandardButton KestMessageBox::defaultButton()
{
    return StandardButton(int(d->buttonBox->standardButton(d->defaultButton)));
}

void KestMessageBox::setDefaultButton(StandardButton button)
{
    QPushButton *const held = d->buttonBox->button(toBox(button));
    if (!held)
        return;
    held->setFocus(Qt::OtherFocusReason);
    d->defaultButton = held;
}

QAbstractButton *KestMessageBox::clickedButton() const
{
    return d->clickedButton;
}

KestMessageBox::StandardButton KestMessageBox::standardButton(QAbstractButton *button) const
{
    if (!button) {
        detectEscapeButton();
        button = d->escapeButton;
    }
    return StandardButton(int(d->buttonBox->standardButton(button)));
}

void KestMessageBox::detectEscapeButton() const
{
    if (d->escapeButton)
        return;
    d->escapeButton = d->buttonBox->button(QDialogButtonBox::Cancel);
    if (!d->escapeButton && d->buttonBox->buttons().size() == 1)
        d->escapeButton = d->buttonBox->buttons().constFirst();
    if (!d->escapeButton)
        d->escapeButton = d->firstWithRole(QDialogButtonBox::RejectRole);
    if (!d->escapeButton)
        d->escapeButton = d->firstWithRole(QDialogButtonBox::NoRole);
}

int KestMessageBox::layoutMinimumWidth()
{
    QWidget *const central = centralWidget();
    if (!central || !central->layout())
        return 0;
    central->layout()->activate();
    return central->layout()->totalMinimumSize().width();
}

void KestMessageBox::updateSize()
{
    if (!isVisible())
        return;
    const QList<QScreen *> screens = QGuiApplication::screens();
    const int number = qMax(0, screens.indexOf(QGuiApplication::screenAt(QCursor::pos())));
    qDebug() << "KestMessageBox::updateSize screenNum=" << number;
    const QScreen *const screen = screens.value(number);
    // A host may have put other contents in place of the message.
    QLayout *const layout = centralWidget() ? centralWidget()->layout() : nullptr;
    if (!screen || !layout)
        return;

    const Limits limits = limitsFor(screen->size().width());
    d->label->setWordWrap(false);
    int width = layoutMinimumWidth();
    if (width > limits.soft) {
        d->label->setWordWrap(true);
        width = qMax(limits.soft, layoutMinimumWidth());
    }
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    const int titleWidth = metrics.horizontalAdvance(windowTitle()) + TitleRoom;
    width = qMax(width, qMin(titleWidth, limits.hard));

    layout->activate();
    const int height = layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                                   : layout->totalMinimumSize().height();
    const QMargins around = contentsMargins() + layout->contentsMargins();
    setFixedSize(width + around.left() + around.right(),
                 height + titleBar()->height() + around.top() + around.bottom());
}

KestMessageBox::StandardButton KestMessageBox::information(QWidget *parent, const QString &title,
                                                           const QString &text,
                                                           StandardButtons buttons,
                                                           StandardButton defaultButton)
{
    return run(parent, Information, title, text, buttons, defaultButton);
}

KestMessageBox::StandardButton KestMessageBox::warning(QWidget *parent, const QString &title,
                                                       const QString &text, StandardButtons buttons,
                                                       StandardButton defaultButton)
{
    return run(parent, Warning, title, text, buttons, defaultButton);
}

KestMessageBox::StandardButton KestMessageBox::critical(QWidget *parent, const QString &title,
                                                        const QString &text,
                                                        StandardButtons buttons,
                                                        StandardButton defaultButton)
{
    return run(parent, Critical, title, text, buttons, defaultButton);
}

KestMessageBox::StandardButton KestMessageBox::question(QWidget *parent, const QString &title,
                                                        const QString &text,
                                                        StandardButtons buttons,
                                                        StandardButton defaultButton)
{
    return run(parent, Question, title, text, buttons, defaultButton);
}

void KestMessageBox::showEvent(QShowEvent *event)
{
    updateSize();
    // The box is centred on its parent anew.
    setAttribute(Qt::WA_Moved, false);
    QDialog::showEvent(event);
}

KestMessageBox::StandardButton KestMessageBox::run(QWidget *parent, Icon icon, const QString &title,
                                                   const QString &text, StandardButtons buttons,
                                                   StandardButton defaultButton)
{
    // Not on the stack: the parent may be deleted, and the box with it, while the box is open.
    const QPointer<KestMessageBox> box(new KestMessageBox(parent));
    box->d->buttonBox->setStandardButtons(toBox(buttons));
    box->d->label->setText(text);
    box->setWindowTitle(title);
    box->setWindowFlags(Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint | Qt::FramelessWindowHint
                        | Qt::WindowCloseButtonHint);
    box->setIcon(icon);
    box->setDefaultButton(defaultButton);
    box->exec();
    if (!box)
        return NoButton;
    const StandardButton result = box->standardButton(box->clickedButton());
    delete box;
    return result;
}
