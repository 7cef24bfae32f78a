// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "BarActions.h"

#include "KestToolButton.h"

#include <QtGui/QActionEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QWidgetAction>

namespace {

const size_t MostActions = 8;
const char Changing[] = "changing"; // a property of an action whose widgets are being told

// A bar that is deleted meanwhile does not delete it a second time.
void end(QAction *action)
{
    action->setParent(nullptr);
    delete action;
}

} // namespace

BarActions::BarActions(std::function<void()> called) : m_called(std::move(called))
{ }

BarActions::~BarActions()
{
    m_called = [] {};
    m_changed = nullptr;
    for (const QPointer<QAction> &action : m_actions)
        delete action;
}

QAction *BarActions::any(FuzzInput &input)
{
    const size_t index = size_t(input.below(MostActions + 1));
    if (index < m_actions.size() && m_actions[index])
        return m_actions[index];
    if (index == MostActions)
        return nullptr;
    QAction *const action = create(input);
    watch(action);
    if (index < m_actions.size())
        m_actions[index] = action;
    else
        m_actions.emplace_back(action);
    return action;
}

void BarActions::keep(QAction *action)
{
    if (!action)
        return;
    for (QPointer<QAction> &place : m_actions) {
        if (!place) {
            watch(action);
            place = action;
            return;
        }
    }
    if (m_actions.size() < MostActions) {
        watch(action);
        m_actions.emplace_back(action);
        return;
    }
    end(action);
}

QAction *BarActions::create(FuzzInput &input)
{
    auto *const custom = new QWidgetAction(nullptr);
    switch (input.below(6)) {
    case 0:
        custom->setSeparator(true);
        break;
    case 1:
        custom->setDefaultWidget(new QLabel(QStringLiteral("label")));
        break;
    case 2:
        custom->setDefaultWidget(new KestToolButton);
        break;
    case 3:
        custom->setCheckable(true);
        break;
    default:
        custom->setText(input.text(6));
        break;
    }
    return custom;
}

void BarActions::watch(QAction *action)
{
    QObject::connect(action, &QAction::triggered, action, [this] { m_called(); });
    QObject::connect(action, &QAction::changed, action, [this, action] {
        if (m_changed)
            m_changed(action);
    });
}

void BarActions::change(FuzzInput &input)
{
    const size_t index = size_t(input.below(MostActions));
    QAction *const action = index < m_actions.size() ? m_actions[index].data() : nullptr;
    if (!action)
        return;
    auto *const custom = qobject_cast<QWidgetAction *>(action);
    switch (input.below(10)) {
    case 0:
        if (action->property(Changing).toBool())
            break;
        m_actions[index] = nullptr; // nobody puts what is dying on a bar
        end(action);
        break;
    case 1:
        if (custom)
            delete custom->defaultWidget();
        break;
    case 2:
        if (custom && custom->defaultWidget())
            custom->defaultWidget()->setParent(nullptr);
        break;
    case 3:
        action->setVisible(input.flag());
        break;
    case 4:
        action->setText(input.text(12));
        break;
    case 5:
        action->setIcon(anyIcon(input));
        break;
    case 6:
        action->setEnabled(input.flag());
        break;
    case 7:
        action->setObjectName(input.text(4));
        break;
    case 8:
        action->setCheckable(true);
        action->setChecked(input.flag());
        break;
    default:
        action->trigger();
        break;
    }
}

BarInterruption::BarInterruption(QWidget *bar, std::function<void(bool)> called)
    : m_bar(bar), m_called(std::move(called))
{
    qApp->installEventFilter(this);
}

bool BarInterruption::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_bar)
        return false;
    switch (event->type()) {
    case QEvent::ActionAdded:
    case QEvent::ActionRemoved:
    case QEvent::ActionChanged:
    case QEvent::ChildAdded:
    case QEvent::ChildRemoved:
        break;
    default:
        return false;
    }
    const QPointer<QObject> guard(watched);
    if (event->type() == QEvent::ActionChanged) {
        // Qt goes on with the action once its widgets know.
        const QPointer<QAction> action(static_cast<QActionEvent *>(event)->action());
        const QVariant before = action->property(Changing);
        action->setProperty(Changing, true);
        m_called(action->parent() != m_bar);
        if (action)
            action->setProperty(Changing, before);
    } else {
        m_called(event->type() != QEvent::ChildAdded && event->type() != QEvent::ChildRemoved);
    }
    return guard.isNull(); // there is nobody left to handle it
}

QIcon anyIcon(FuzzInput &input)
{
    QIcon icon;
    for (int left = input.below(3); left > 0; --left) {
        QPixmap pixmap(input.below(64), 1 + input.below(64));
        if (!pixmap.isNull())
            pixmap.fill(Qt::red);
        icon.addPixmap(pixmap, QIcon::Normal, input.flag() ? QIcon::On : QIcon::Off);
    }
    return icon;
}

QWidget *widgetOf(const QWidget *bar, const QAction *action)
{
    const auto *const custom = qobject_cast<const QWidgetAction *>(action);
    if (custom && custom->defaultWidget()) {
        return custom->defaultWidget()->parentWidget() == bar ? custom->defaultWidget() : nullptr;
    }
    for (QToolButton *button : bar->findChildren<QToolButton *>()) {
        if (button->defaultAction() == action && !button->isHidden())
            return button;
    }
    return nullptr;
}

void clickInto(QWidget *widget)
{
    const QPointer<QWidget> guard(widget);
    for (const QEvent::Type type : { QEvent::MouseButtonPress, QEvent::MouseButtonRelease }) {
        QMouseEvent event(type, QPointF(2, 2), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                          Qt::NoModifier);
        if (guard)
            QCoreApplication::sendEvent(widget, &event);
    }
}
