// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestMessageBox.h"

#include "KestTitleBar.h"
#include "MessageCopy.h"

#include <QtCore/QDebug>
#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtGui/QClipboard>
#include <QtGui/QCursor>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QVBoxLayout>

#include <optional>

namespace {

// All in pixels.
const int IconSpacing = 20;
const int SmallScreenWidth = 1024; // up to here a box may be as wide as the screen
const int ScreenMargin = 480; // what is left free beside a box on larger screens
const int WidestBox = 1000;
const int WidestUnwrapped = 500; // a text that needs more is wrapped
const int TitleRoom = 50; // for the title bar's button

// Lets its buttons go while it is whole, since whoever hears of their end may ask for others. Has
// room for their captions where a style sheet's least width has none: layouts go by that alone.
class ButtonBox : public QDialogButtonBox // clazy:exclude=missing-qobject-macro
{
public:
    using QDialogButtonBox::QDialogButtonBox;
    ~ButtonBox() override { clear(); }

    QSize minimumSizeHint() const override
    {
        const QSize least = QDialogButtonBox::minimumSizeHint();
        return { qMax(least.width(), sizeHint().width()), least.height() };
    }
};

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

std::optional<QStyle::StandardPixmap> standardPixmap(KestMessageBox::Icon icon)
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
        return std::nullopt;
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

const QScreen *screenBelowPointer()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    const int number = qMax(0, screens.indexOf(QGuiApplication::screenAt(QCursor::pos())));
    qDebug() << "KestMessageBox::updateSize screenNum=" << number;
    return screens.value(number);
}

int widthForTitle(const QString &title)
{
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    return metrics.horizontalAdvance(title) + TitleRoom;
}

int layoutHeight(const QLayout *layout, int width)
{
    return layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                       : layout->totalMinimumSize().height();
}

KestMessageBox::StandardButton ask(KestMessageBox::Icon icon, QWidget *parent, const QString &title,
                                   const QString &text, KestMessageBox::StandardButtons buttons,
                                   KestMessageBox::StandardButton defaultButton)
{
    // Not on the stack: the parent may be deleted, and the box with it, while the box is open.
    const QPointer<KestMessageBox> box(new KestMessageBox(icon, title, text, buttons, parent));
    box->setDefaultButton(defaultButton);
    box->exec();
    if (!box)
        return KestMessageBox::NoButton;
    const KestMessageBox::StandardButton result = box->standardButton(box->clickedButton());
    delete box;
    return result;
}

} // namespace

class KestMessageBoxPrivate
{
public:
    explicit KestMessageBoxPrivate(KestMessageBox *box);

    QList<QAbstractButton *> buttons() const;
    QPushButton *standardButton(QDialogButtonBox::StandardButton button) const;
    QAbstractButton *firstWithRole(QDialogButtonBox::ButtonRole role) const;
    QAbstractButton *buttonForLetter(const QKeyEvent *event) const;
    bool focusIsInTheMessage() const;
    QPushButton *buttonForEnter() const;
    int contentsWidth(int softLimit);

    KestMessageBox *q;
    // Weak: a host may put something else in place of the message.
    QPointer<QLabel> label;
    QPointer<QLabel> iconLabel;
    QPointer<QDialogButtonBox> buttonBox;
    KestMessageBox::Icon icon = KestMessageBox::NoIcon;
    // Weak: removed buttons are their owner's to delete.
    QPointer<QAbstractButton> clickedButton;
    QPointer<QAbstractButton> defaultButton;
    QPointer<QAbstractButton> escapeButton;
};

KestMessageBoxPrivate::KestMessageBoxPrivate(KestMessageBox *box)
    : q(box), label(new QLabel(box)), iconLabel(new QLabel(box)), buttonBox(new ButtonBox(box))
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

QList<QAbstractButton *> KestMessageBoxPrivate::buttons() const
{
    return buttonBox ? buttonBox->buttons() : QList<QAbstractButton *>();
}

QPushButton *KestMessageBoxPrivate::standardButton(QDialogButtonBox::StandardButton button) const
{
    return buttonBox ? buttonBox->button(button) : nullptr;
}

QAbstractButton *KestMessageBoxPrivate::firstWithRole(QDialogButtonBox::ButtonRole role) const
{
    const QList<QAbstractButton *> held = buttons();
    for (QAbstractButton *button : held) {
        if (buttonBox->buttonRole(button) == role)
            return button;
    }
    return nullptr;
}

// A key that repeats was held down for something else, before the box was there.
QAbstractButton *KestMessageBoxPrivate::buttonForLetter(const QKeyEvent *event) const
{
    if (event->isAutoRepeat()
        || event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return nullptr;
    const QKeySequence letter(int(Qt::ALT) | event->key());
    const QList<QAbstractButton *> held = buttons();
    for (QAbstractButton *button : held) {
        if (button->isVisible() && button->isEnabled()
            && QKeySequence::mnemonic(button->text()) == letter)
            return button;
    }
    return nullptr;
}

bool KestMessageBoxPrivate::focusIsInTheMessage() const
{
    const QWidget *const focus = q->focusWidget();
    return focus && focus->isVisible() && focus->isEnabled() && q->centralWidget()
        && q->centralWidget()->isAncestorOf(focus);
}

QPushButton *KestMessageBoxPrivate::buttonForEnter() const
{
    const QList<QPushButton *> pushButtons = q->findChildren<QPushButton *>();
    for (QPushButton *button : pushButtons) {
        if (button->isDefault() && button->isVisible())
            return button;
    }
    return nullptr;
}

// The least width of the contents; wraps the text where it would be wider than softLimit.
int KestMessageBoxPrivate::contentsWidth(int softLimit)
{
    if (label)
        label->setWordWrap(false);
    const int width = q->layoutMinimumWidth();
    if (width <= softLimit)
        return width;
    if (label)
        label->setWordWrap(true);
    return qMax(softLimit, q->layoutMinimumWidth());
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
    // There is no window of the system's yet, and nothing for the children to hear of.
    overrideWindowFlags(flags | Qt::FramelessWindowHint | Qt::WindowCloseButtonHint);
    setIcon(icon);
}

KestMessageBox::~KestMessageBox()
{
    // Whoever hears of it still meets a whole box: nothing that the rest of the destruction hides
    // or deletes leads to the record any more.
    hide();
    delete d->buttonBox;
    delete d;
}

QString KestMessageBox::text() const
{
    return d->label ? d->label->text() : QString();
}

void KestMessageBox::setText(const QString &text)
{
    if (d->label)
        d->label->setText(text);
}

Qt::TextFormat KestMessageBox::textFormat() const
{
    return d->label ? d->label->textFormat() : Qt::AutoText;
}

void KestMessageBox::setTextFormat(Qt::TextFormat format)
{
    if (d->label)
        d->label->setTextFormat(format);
}

Qt::TextInteractionFlags KestMessageBox::textInteractionFlags() const
{
    return d->label ? d->label->textInteractionFlags() : Qt::NoTextInteraction;
}

void KestMessageBox::setTextInteractionFlags(Qt::TextInteractionFlags flags)
{
    if (d->label)
        d->label->setTextInteractionFlags(flags);
}

KestMessageBox::Icon KestMessageBox::icon() const
{
    return d->icon;
}

void KestMessageBox::setIcon(Icon icon)
{
    d->icon = icon;
    const std::optional<QStyle::StandardPixmap> number = standardPixmap(icon);
    if (!number)
        return;
    // The style may be the host's.
    const QPointer<KestMessageBox> guard(this);
    const QPixmap pixmap = style()->proxy()->standardPixmap(*number, nullptr);
    if (guard && d->icon == icon && d->iconLabel)
        d->iconLabel->setPixmap(pixmap);
}

void KestMessageBox::setIconPixmap(const QPixmap &pixmap)
{
    d->icon = NoIcon;
    if (d->iconLabel)
        d->iconLabel->setPixmap(pixmap);
}

KestMessageBox::StandardButtons KestMessageBox::standardButtons() const
{
    return d->buttonBox ? StandardButtons(int(d->buttonBox->standardButtons())) : NoButton;
}

void KestMessageBox::setStandardButtons(StandardButtons buttons)
{
    if (!d->buttonBox)
        return;
    const QPointer<KestMessageBox> guard(this);
    d->buttonBox->setStandardButtons(toBox(buttons));
    if (!guard)
        return;
    const QList<QAbstractButton *> held = d->buttons();
    if (!held.contains(d->escapeButton))
        d->escapeButton = nullptr;
    if (!held.contains(d->defaultButton))
        d->defaultButton = nullptr;
    updateSize();
}

void KestMessageBox::addButton(QAbstractButton *button, ButtonRole role)
{
    if (button && d->buttonBox && !d->buttons().contains(button))
        d->buttonBox->addButton(button, QDialogButtonBox::ButtonRole(role));
}

QPushButton *KestMessageBox::addButton(const QString &text, ButtonRole role)
{
    if (!d->buttonBox)
        return nullptr;
    auto *button = new QPushButton(text, this);
    addButton(button, role);
    return button;
}

QPushButton *KestMessageBox::addButton(StandardButton button)
{
    return d->buttonBox ? d->buttonBox->addButton(toBox(button)) : nullptr;
}

void KestMessageBox::removeButton(QAbstractButton *button)
{
    if (button && d->buttonBox)
        d->buttonBox->removeButton(button);
}

KestMessageBox::StandardButton KestMessageBox::defaultButton()
{
    return d->buttonBox ? StandardButton(int(d->buttonBox->standardButton(d->defaultButton)))
                        : NoButton;
}

void KestMessageBox::setDefaultButton(StandardButton button)
{
    QPushButton *const held = d->standardButton(toBox(button));
    if (!held)
        return;
    d->defaultButton = held;
    held->setFocus(Qt::OtherFocusReason);
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
    return d->buttonBox ? StandardButton(int(d->buttonBox->standardButton(button))) : NoButton;
}

void KestMessageBox::detectEscapeButton() const
{
    if (d->escapeButton)
        return;
    d->escapeButton = d->standardButton(QDialogButtonBox::Cancel);
    if (!d->escapeButton && d->buttons().size() == 1)
        d->escapeButton = d->buttons().constFirst();
    if (!d->escapeButton)
        d->escapeButton = d->firstWithRole(QDialogButtonBox::RejectRole);
    if (!d->escapeButton)
        d->escapeButton = d->firstWithRole(QDialogButtonBox::NoRole);
}

int KestMessageBox::layoutMinimumWidth()
{
    const QWidget *const central = centralWidget();
    const QPointer<QLayout> layout(central ? central->layout() : nullptr);
    if (layout)
        layout->activate();
    return layout ? layout->totalMinimumSize().width() : 0;
}

void KestMessageBox::updateSize()
{
    if (!isVisible())
        return;
    const QScreen *const screen = screenBelowPointer();
    const QWidget *const central = centralWidget();
    const QPointer<QLayout> layout(central ? central->layout() : nullptr);
    if (!screen || !layout)
        return;

    const Limits limits = limitsFor(screen->size().width());
    // Activating the layout tells its widgets their new sizes.
    const QPointer<KestMessageBox> guard(this);
    int width = d->contentsWidth(limits.soft);
    if (!guard || !layout)
        return;
    width = qMax(width, qMin(widthForTitle(windowTitle()), limits.hard));
    layout->activate();
    if (!guard || !layout)
        return;
    const QMargins around = contentsMargins() + layout->contentsMargins();
    setFixedSize(width + around.left() + around.right(),
                 layoutHeight(layout, width) + titleBar()->height() + around.top()
                     + around.bottom());
}

KestMessageBox::StandardButton KestMessageBox::information(QWidget *parent, const QString &title,
                                                           const QString &text,
                                                           StandardButtons buttons,
                                                           StandardButton defaultButton)
{
    return ask(Information, parent, title, text, buttons, defaultButton);
}

KestMessageBox::StandardButton KestMessageBox::warning(QWidget *parent, const QString &title,
                                                       const QString &text, StandardButtons buttons,
                                                       StandardButton defaultButton)
{
    return ask(Warning, parent, title, text, buttons, defaultButton);
}

KestMessageBox::StandardButton KestMessageBox::critical(QWidget *parent, const QString &title,
                                                        const QString &text,
                                                        StandardButtons buttons,
                                                        StandardButton defaultButton)
{
    return ask(Critical, parent, title, text, buttons, defaultButton);
}

KestMessageBox::StandardButton KestMessageBox::question(QWidget *parent, const QString &title,
                                                        const QString &text,
                                                        StandardButtons buttons,
                                                        StandardButton defaultButton)
{
    return ask(Question, parent, title, text, buttons, defaultButton);
}

void KestMessageBox::setVisible(bool visible)
{
    const QPointer<KestMessageBox> guard(this);
    const bool opens = visible && !isVisible();
    KestDialog::setVisible(visible);
    // Only now is it known which button Enter presses.
    if (!guard || !opens || d->focusIsInTheMessage())
        return;
    if (QPushButton *const button = d->buttonForEnter())
        button->setFocus(Qt::OtherFocusReason);
}

void KestMessageBox::showEvent(QShowEvent *event)
{
    const QPointer<KestMessageBox> guard(this);
    updateSize();
    if (!guard)
        return;
    // The box is centred on its parent anew.
    setAttribute(Qt::WA_Moved, false);
    KestDialog::showEvent(event);
    if (!guard || event->spontaneous())
        return;
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void KestMessageBox::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Copy))
        QGuiApplication::clipboard()->setText(copyOfMessage(windowTitle(), d->label, d->buttonBox));
    else if (QAbstractButton *const button = d->buttonForLetter(event))
        button->click();
    else
        KestDialog::keyPressEvent(event);
}
