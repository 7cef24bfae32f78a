// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestNavigationBar.h"

#include "KestAccessibleParts.h"
#include "KestNavigationImageButton.h"
#include "KestUserButton.h"
#include "QuietLayout.h"
#include "Util.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtCore/QVariant>
#include <QtGui/QActionEvent>
#include <QtGui/QDesktopServices>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QWidgetAction>

#include <utility>

namespace {

const int BarHeight = 50; // pixels
const int BarMargin = 1; // pixels
const int EntrySpacing = 1; // pixels
const int GroupCount = 3;

const char PositionProperty[] = "Kest_ActionPosition";
const char HelpProperty[] = "Kest_Help";

// Unset means the left group.
int positionOf(const QAction *action)
{
    return action->property(PositionProperty).toInt();
}

// A button that is the default widget of its own action, and carries the action's name.
void bindButton(KestToolButton *button, QWidgetAction *action)
{
    action->setDefaultWidget(button);
    button->setDefaultAction(action);
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
    QObject::connect(action, &QObject::objectNameChanged, button,
                     QOverload<const QString &>::of(&QObject::setObjectName));
}

// Takes a custom widget off the bar. It belongs to its action, which may be put on a bar again;
// unless it is elsewhere already.
void giveBack(const KestWidgetItem *item, const KestNavigationBar *bar)
{
    const QPointer<const KestNavigationBar> guard(bar);
    const QPointer<QWidget> widget(item->widget());
    if (!widget || !item->isCustomWidget() || widget->parentWidget() != bar)
        return;
    widget->hide();
    if (guard && widget && widget->parentWidget() == bar && widget->isHidden())
        widget->setParent(nullptr);
}

// Returns the action, or null where it has died meanwhile, as it does with the bar that owns it.
QAction *inserted(KestNavigationBar *bar, int index, QAction *action,
                  KestNavigationBar::ActionPosition position)
{
    const QPointer<QAction> guard(action);
    bar->insertAction(index, action, position);
    return guard.data();
}

} // namespace

class KestNavigationBarPrivate
{
public:
    explicit KestNavigationBarPrivate(KestNavigationBar *bar) : q(bar), quiet(bar) { }

    struct Group
    {
        QList<std::shared_ptr<KestWidgetItem>> items;
        QHBoxLayout *layout = nullptr;
    };

    KestNavigationBar *const q;
    Group groups[GroupCount];
    QHash<QAction *, Group *>
        places; // for looking up; an action may have died or changed its place
    QSize iconSize = QSize(16, 16);
    QuietLayout quiet;
    QString helpName; // that the bar gave the help entries last

    // Null for a position that is no group.
    Group *group(int position)
    {
        return position >= 0 && position < GroupCount ? &groups[position] : nullptr;
    }

    // Where the action is now: null for one that is on no group.
    Group *groupOf(QAction *action) const
    {
        Group *const group = places.value(action);
        return group && Util::find(action, group->items) ? group : nullptr;
    }

    void nameHelp(const KestWidgetItem *item);
    void nameHelps();
};

// For screen readers, as long as the entry has no text. A name that a host gave stays.
void KestNavigationBarPrivate::nameHelp(const KestWidgetItem *item)
{
    const QAction *const action = item->action();
    QWidget *const button = item->widget();
    if (!action || !button || !action->property(HelpProperty).toBool())
        return;
    //: What a screen reader calls the entry that opens the help
    const QString name = action->text().isEmpty() ? KestNavigationBar::tr("Help") : QString();
    const QString before = button->accessibleName();
    // Names that are set are announced, also where they are the same.
    if (before != name && (before.isEmpty() || before == helpName))
        button->setAccessibleName(name);
}

void KestNavigationBarPrivate::nameHelps()
{
    QList<std::shared_ptr<KestWidgetItem>> items;
    for (const Group &group : groups)
        items += group.items;
    const QPointer<KestNavigationBar> guard(q);
    for (const auto &item : std::as_const(items)) {
        nameHelp(item.get());
        if (!guard)
            return;
    }
    helpName = KestNavigationBar::tr("Help");
}

KestNavigationBar::KestNavigationBar(QWidget *parent)
    : QWidget(parent), d(new KestNavigationBarPrivate(this))
{
    KestAccessibleParts::install();
    d->helpName = tr("Help");
    setFixedHeight(BarHeight);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(BarMargin, BarMargin, BarMargin, BarMargin);
    layout->setSpacing(0);
    for (KestNavigationBarPrivate::Group &group : d->groups) {
        if (layout->count() > 0)
            layout->addStretch(1);
        group.layout = new QHBoxLayout;
        group.layout->setSpacing(EntrySpacing);
        layout->addLayout(group.layout);
    }
    setAttribute(Qt::WA_StyledBackground);
}

KestNavigationBar::~KestNavigationBar()
{
    // The items delete their buttons while those still exist, and a button that has the focus
    // passes it on: whoever hears of that finds lists without the item.
    for (KestNavigationBarPrivate::Group &group : d->groups) {
        while (!group.items.isEmpty())
            group.items.takeLast();
    }
    delete d;
}

void KestNavigationBar::addAction(QAction *action, ActionPosition position)
{
    insertAction(-1, action, position);
}

QAction *KestNavigationBar::addAction(const QIcon &icon, const QString &text,
                                      ActionPosition position)
{
    return inserted(this, -1, new QAction(icon, text, this), position);
}

QAction *KestNavigationBar::addAction(const QString &text, ActionPosition position)
{
    return addAction(QIcon(), text, position);
}

void KestNavigationBar::insertAction(int index, QAction *action, ActionPosition position)
{
    if (!action)
        return;
    QAction *before = actionAt(index, position);
    if (before == action)
        before = actionAt(index + 1, position);
    const QPointer<KestNavigationBar> guard(this);
    const QPointer<QAction> added(action);
    const QPointer<QAction> next(before);
    // An action that is on the bar leaves its group while it still names that one.
    removeAction(action);
    // Whoever heard of that may have put it elsewhere on the bar, where it stays.
    if (!guard || !added || actions().contains(added))
        return;
    added->setProperty(PositionProperty, int(position));
    if (guard && added && !actions().contains(added))
        QWidget::insertAction(next, added);
}

QAction *KestNavigationBar::insertAction(int index, const QIcon &icon, const QString &text,
                                         ActionPosition position)
{
    return inserted(this, index, new QAction(icon, text), position);
}

QAction *KestNavigationBar::insertAction(int index, const QString &text, ActionPosition position)
{
    return insertAction(index, QIcon(), text, position);
}

QAction *KestNavigationBar::addSeparator(ActionPosition position)
{
    return insertSeparator(count(position), position);
}

QAction *KestNavigationBar::insertSeparator(int index, ActionPosition position)
{
    auto *action = new QAction;
    action->setSeparator(true);
    return inserted(this, index, action, position);
}

QAction *KestNavigationBar::addHelp(const QUrl &url, const QIcon &icon, ActionPosition position)
{
    return insertHelp(count(position), url, icon, position);
}

QAction *KestNavigationBar::insertHelp(int index, const QUrl &url, const QIcon &icon,
                                       ActionPosition position)
{
    auto *action = new QAction(icon, QString(), this);
    action->setProperty(HelpProperty, true);
    connect(action, &QAction::triggered, action, [url] { QDesktopServices::openUrl(url); });
    return inserted(this, index, action, position);
}

QAction *KestNavigationBar::addLogo(const QIcon &icon, ActionPosition position)
{
    return insertLogo(count(position), icon, position);
}

QAction *KestNavigationBar::insertLogo(int index, const QIcon &icon, ActionPosition position)
{
    auto *action = new QWidgetAction(this);
    action->setIcon(icon);
    auto *button = new KestNavigationImageButton(this);
    button->setIcon(icon);
    bindButton(button, action);
    return inserted(this, index, action, position);
}

QAction *KestNavigationBar::addUser(const QIcon &icon, const QString &text, ActionPosition position)
{
    return insertUser(count(position), icon, text, position);
}

QAction *KestNavigationBar::insertUser(int index, const QIcon &icon, const QString &text,
                                       ActionPosition position)
{
    auto *action = new QWidgetAction(this);
    bindButton(new KestUserButton(nullptr), action);
    action->setText(text);
    action->setIcon(icon);
    return inserted(this, index, action, position);
}

int KestNavigationBar::count(ActionPosition position) const
{
    const KestNavigationBarPrivate::Group *group = d->group(position);
    return group ? group->items.size() : 0;
}

QAction *KestNavigationBar::actionAt(int index, ActionPosition position) const
{
    if (index < 0 || index >= count(position))
        return nullptr;
    return d->group(position)->items.at(index)->action();
}

int KestNavigationBar::indexOf(QAction *action) const
{
    for (const KestNavigationBarPrivate::Group &group : d->groups) {
        if (const auto item = Util::find(action, group.items))
            return group.items.indexOf(item);
    }
    return -1;
}

QRect KestNavigationBar::actionRect(QAction *action)
{
    for (const KestNavigationBarPrivate::Group &group : d->groups) {
        const auto item = Util::find(action, group.items);
        if (item && item->widget())
            return item->widget()->geometry();
    }
    return QRect();
}

QSize KestNavigationBar::iconSize() const
{
    return d->iconSize;
}

void KestNavigationBar::setIconSize(const QSize &size)
{
    d->iconSize = size;
    Q_EMIT iconSizeChanged(size);
}

bool KestNavigationBar::event(QEvent *event)
{
    d->quiet.see(event);
    if (event->type() == QEvent::LanguageChange) {
        const QPointer<KestNavigationBar> guard(this);
        d->nameHelps();
        if (!guard)
            return true;
    }
    return QWidget::event(event);
}

void KestNavigationBar::actionEvent(QActionEvent *event)
{
    QAction *const action = event->action();
    // Changes reach the widgets by themselves, but for what is read in place of a text.
    if (event->type() == QEvent::ActionChanged) {
        const bool isHelp = action->property(HelpProperty).toBool();
        KestNavigationBarPrivate::Group *const group = isHelp ? d->places.value(action) : nullptr;
        if (const auto item = group ? Util::find(action, group->items) : nullptr)
            d->nameHelp(item.get());
        return;
    }

    if (event->type() == QEvent::ActionAdded) {
        // Whoever heard of it first may have deleted the action, or taken it away again.
        if (actions().lastIndexOf(action) < 0)
            return;
        const QPointer<KestNavigationBar> guard(this);
        const QuietLayout::Scope quiet(d->quiet);
        const QSize size = d->iconSize;
        const auto item = std::make_shared<KestWidgetItem>(action, Qt::Horizontal, size, this);
        // Whoever heard of the action or the new widget may have taken the action away again, or
        // put it elsewhere on the bar.
        if (!guard || !item->action() || !action->associatedWidgets().contains(this))
            return;
        KestNavigationBarPrivate::Group *const group = d->group(positionOf(action));
        KestNavigationBarPrivate::Group *const former = d->groupOf(action);
        if (group && group == former)
            return;
        std::shared_ptr<KestWidgetItem> left;
        if (former) {
            left = Util::find(action, former->items);
            Util::takeItem(left, former->items, former->layout);
        }
        // One that belongs to no group is bound to its widget, but gets no place on the bar.
        if (!group) {
            d->places.remove(action);
            if (left)
                giveBack(left.get(), this);
            return;
        }
        // Where a slot sets another size, the one that it was told is no longer the bar's.
        connect(this, &KestNavigationBar::iconSizeChanged, item.get(),
                [this, shown = item.get()] { Q_EMIT shown->iconSizeChanged(d->iconSize); });
        if (size != d->iconSize)
            Q_EMIT item->iconSizeChanged(d->iconSize);
        d->places.insert(action, group);
        Util::addItem(item, group->items, event->before(), group->layout);
        if (guard)
            d->nameHelp(item.get());
        return;
    }

    // Whoever heard of it first may have deleted the action, whose button is nobody's then.
    KestNavigationBarPrivate::Group *const former = d->places.value(action);
    if (former && !Util::find(action, former->items)) {
        const std::shared_ptr<KestWidgetItem> orphan = Util::findOrphan(former->items);
        d->places.remove(action);
        if (orphan)
            Util::takeItem(orphan, former->items, former->layout);
        return;
    }
    // Or have put it on the bar again.
    if (!former || action->associatedWidgets().contains(this))
        return;
    KestNavigationBarPrivate::Group *const group = d->group(positionOf(action));
    std::shared_ptr<KestWidgetItem> item =
        group ? Util::find(action, group->items) : std::shared_ptr<KestWidgetItem>();
    if (!item)
        return;
    const QuietLayout::Scope quiet(d->quiet, item->widget(), item.get());
    d->places.remove(action);
    Util::takeItem(item, group->items, group->layout);
    giveBack(item.get(), this);
    item.reset(); // its button dies while the layout is quiet
}
