// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// The navigation bar beside three lists of actions.

#include "BarActions.h"
#include "KestNavigationBar.h"
#include "KestToolButton.h"

#include <QtCore/QUrl>
#include <QtCore/QVariant>
#include <QtGui/QIcon>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLayout>
#include <QtWidgets/QWidgetAction>

namespace {

using Position = KestNavigationBar::ActionPosition;

class NavigationBarTrial
{
public:
    explicit NavigationBarTrial(FuzzInput &input)
        : m_input(input),
          m_actions([this] { interrupt(); }),
          m_bar(new KestNavigationBar),
          m_interruption(m_bar, [this](bool mayDelete) { interrupt(mayDelete); }),
          m_left(input.byte()),
          m_deletes(input.below(4) == 0)
    {
        QObject::connect(m_bar, &KestNavigationBar::iconSizeChanged, qApp, [this] { interrupt(); });
    }
    ~NavigationBarTrial()
    {
        m_left = -1;
        delete m_bar;
    }

    void run()
    {
        while (m_bar && !m_input.atEnd()) {
            m_interrupted = false;
            step();
            if (!m_bar)
                break;
            if (m_interrupted)
                follow();
            else
                compare();
            checkWidgets();
        }
    }

private:
    Position position()
    {
        const int kind = m_input.below(10);
        return Position(kind < 9 ? kind % 3 : m_input.integer());
    }

    void place(int index, QAction *action, Position position)
    {
        if (!action)
            return;
        QAction *before = m_groups[position].value(index);
        if (before == action)
            before = m_groups[position].value(index + 1);
        placeBefore(before, action, position);
    }

    void placeBefore(QAction *before, QAction *action, int position)
    {
        remove(action);
        if (position < 0 || position > 2)
            return;
        QList<QAction *> &group = m_groups[position];
        const int index = before ? group.indexOf(before) : -1;
        group.insert(index < 0 ? group.size() : index, action);
    }

    void remove(QAction *action)
    {
        for (QList<QAction *> &group : m_groups)
            group.removeAll(action);
    }

    void forgetTheDead()
    {
        for (QList<QAction *> &group : m_groups) {
            for (int i = group.size() - 1; i >= 0; --i) {
                if (!m_bar->actions().contains(group.at(i)))
                    group.removeAt(i);
            }
        }
    }

    void step();
    void create();
    void interrupt(bool mayDelete = true);
    void follow();
    void compare();
    void checkWidgets();

    FuzzInput &m_input;
    BarActions m_actions;
    QPointer<KestNavigationBar> m_bar;
    BarInterruption m_interruption;
    QMap<int, QList<QAction *>> m_groups;
    int m_left; // calls out of the bar until one is answered
    bool m_deletes;
    bool m_interrupted = false;
    bool m_quiet = false;
};

void NavigationBarTrial::step()
{
    switch (m_input.below(14)) {
    case 0:
    case 1: {
        QAction *const action = m_actions.any(m_input);
        const Position where = position();
        place(-1, action, where);
        m_bar->addAction(action, where);
        break;
    }
    case 2:
    case 3: {
        QAction *const action = m_actions.any(m_input);
        const Position where = position();
        const int index = m_input.flag() ? m_input.below(5) : m_input.integer();
        place(index, action, where);
        m_bar->insertAction(index, action, where);
        break;
    }
    case 4: {
        QAction *const action = m_actions.any(m_input);
        QAction *const before = m_actions.any(m_input);
        if (!action)
            break;
        placeBefore(before, action, action->property("Kest_ActionPosition").toInt());
        // QWidget takes it away first where it is there, and goes on with both whatever happens.
        m_quiet = m_bar->actions().contains(action);
        m_bar->QWidget::insertAction(before, action);
        m_quiet = false;
        break;
    }
    case 5: {
        QAction *const action = m_actions.any(m_input);
        remove(action);
        m_bar->removeAction(action);
        break;
    }
    case 6:
        create();
        break;
    case 7:
    case 8:
        m_actions.change(m_input);
        if (m_bar)
            forgetTheDead();
        break;
    case 9:
        m_bar->setIconSize(QSize(m_input.below(64), m_input.below(64)));
        break;
    case 10:
        m_bar->resize(m_input.below(256) * 4, m_input.below(256));
        if (m_bar)
            m_bar->setLayoutDirection(m_input.flag() ? Qt::RightToLeft : Qt::LeftToRight);
        break;
    case 11:
        m_bar->setVisible(m_input.flag());
        break;
    case 12:
        if (QWidget *const widget = widgetOf(m_bar, m_actions.any(m_input)))
            clickInto(widget);
        if (m_bar)
            forgetTheDead();
        break;
    default:
        settle();
        m_quiet = true; // no widget can end while it is painted
        if (m_bar)
            m_bar->grab();
        m_quiet = false;
        break;
    }
}

void NavigationBarTrial::create()
{
    const Position where = position();
    const int index = m_input.flag() ? m_input.below(5) : m_input.integer();
    const QPointer<KestNavigationBar> guard(m_bar);
    QPointer<QAction> action;
    bool appended = false;
    switch (m_input.below(9)) {
    case 0:
        action = m_bar->addAction(m_input.text(5), where);
        appended = true;
        break;
    case 1:
        action = m_bar->insertAction(index, anyIcon(m_input), m_input.text(5), where);
        break;
    case 2:
        action = m_bar->addSeparator(where);
        appended = true;
        break;
    case 3:
        action = m_bar->insertSeparator(index, where);
        break;
    case 4:
        action = m_bar->insertHelp(index, QUrl(), anyIcon(m_input), where);
        if (action) // which opens no browser here
            QObject::disconnect(action, &QAction::triggered, nullptr, nullptr);
        break;
    case 5:
        action = m_bar->addLogo(anyIcon(m_input), where);
        appended = true;
        break;
    case 6:
        action = m_bar->insertLogo(index, anyIcon(m_input), where);
        break;
    case 7:
        action = m_bar->addUser(anyIcon(m_input), m_input.text(8), where);
        appended = true;
        break;
    default:
        action = m_bar->insertUser(index, anyIcon(m_input), m_input.text(8), where);
        break;
    }
    if (!guard)
        return;
    place(appended ? -1 : index, action, where);
    m_actions.keep(action);
    if (m_bar)
        forgetTheDead();
}

// Once, the host does something of its own in the midst of what the bar does, or ends the bar.
void NavigationBarTrial::interrupt(bool mayDelete)
{
    if (m_quiet || m_left < 0 || (m_deletes && !mayDelete) || m_left-- > 0)
        return;
    m_interrupted = true;
    if (m_deletes)
        delete m_bar;
    else if (m_bar && mayDelete)
        step();
    else if (m_bar)
        m_bar->removeAction(m_actions.any(m_input)); // widgets stay where they are
}

// What is on the bar after an interruption depends on the moment; that it fits together does not.
void NavigationBarTrial::follow()
{
    m_groups.clear();
    for (const Position where :
         { KestNavigationBar::Left, KestNavigationBar::Center, KestNavigationBar::Right }) {
        for (int i = 0; i < m_bar->count(where); ++i)
            m_groups[where].append(m_bar->actionAt(i, where));
    }
    compare();
    for (QAction *action : m_bar->actions()) {
        const int where = action->property("Kest_ActionPosition").toInt();
        int found = 0;
        for (const QList<QAction *> &group : qAsConst(m_groups))
            found += group.count(action);
        FUZZ_CHECK(found == (where >= 0 && where <= 2 ? 1 : 0),
                   QStringLiteral("%1 times at %2").arg(found).arg(where));
        FUZZ_CHECK(found == 0 || m_groups[where].contains(action), QString::number(where));
    }
}

void NavigationBarTrial::compare()
{
    for (const Position where : { Position(-1), KestNavigationBar::Left, KestNavigationBar::Center,
                                  KestNavigationBar::Right, Position(3) }) {
        const QList<QAction *> group = m_groups.value(where);
        FUZZ_CHECK(
            m_bar->count(where) == group.size(),
            QStringLiteral("%1: %2, not %3").arg(where).arg(m_bar->count(where)).arg(group.size()));
        for (int i = 0; i < group.size(); ++i) {
            FUZZ_CHECK(m_bar->actionAt(i, where) == group.at(i),
                       QStringLiteral("%1 at %2").arg(i).arg(where));
            FUZZ_CHECK(group.at(i) && m_bar->indexOf(group.at(i)) == i,
                       QStringLiteral("%1 at %2").arg(i).arg(where));
            FUZZ_CHECK(m_bar->actions().contains(group.at(i)), QString());
        }
        FUZZ_CHECK(!m_bar->actionAt(group.size(), where) && !m_bar->actionAt(-1, where), QString());
    }
    FUZZ_CHECK(m_bar->indexOf(nullptr) == -1 && m_bar->actionRect(nullptr).isNull(), QString());
}

void NavigationBarTrial::checkWidgets()
{
    const auto onBar = [this](const QAction *action) {
        for (const QList<QAction *> &group : qAsConst(m_groups)) {
            if (group.contains(const_cast<QAction *>(action)))
                return true;
        }
        return false;
    };
    // No button stays behind where its action has left. One that was clicked meanwhile is only
    // hidden.
    QList<const QAction *> seen;
    for (KestToolButton *button : m_bar->findChildren<KestToolButton *>()) {
        const QAction *const action = button->defaultAction();
        FUZZ_CHECK(button->isHidden() || (action && onBar(action)), button->text());
        if (button->isHidden() || qobject_cast<const QWidgetAction *>(action))
            continue;
        FUZZ_CHECK(action->isVisible() && !seen.contains(action), action->text());
        seen.append(action);
        FUZZ_CHECK(button->iconSize() == m_bar->iconSize(), action->text());
        FUZZ_CHECK(button->objectName() == action->objectName(), action->objectName());
    }
    for (QAction *action : m_bar->actions()) {
        FUZZ_CHECK(seen.contains(action) || !action->isVisible() || action->isSeparator()
                       || !onBar(action) || qobject_cast<QWidgetAction *>(action),
                   action->text());
    }
    FUZZ_CHECK(m_bar->height() == 50, QString::number(m_bar->height()));
    if (!m_bar->isVisible() || m_bar->width() < 600)
        return;
    m_bar->layout()->activate();
    const bool mirrored = m_bar->layoutDirection() == Qt::RightToLeft;
    int last = mirrored ? m_bar->width() : 0;
    for (const QList<QAction *> &group : qAsConst(m_groups)) {
        for (QAction *action : group) {
            const QWidget *const widget = widgetOf(m_bar, action);
            if (!widget || widget->isHidden())
                continue;
            const QRect rect = m_bar->actionRect(action);
            FUZZ_CHECK(rect == widget->geometry(), action->text());
            FUZZ_CHECK(mirrored ? rect.right() < last : rect.left() >= last,
                       QStringLiteral("%1 after %2").arg(rect.left()).arg(last));
            last = mirrored ? rect.left() : rect.right() + 1;
        }
    }
}

} // namespace

void tryNavigationBar(FuzzInput &input)
{
    NavigationBarTrial(input).run();
}
