// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// The title bar beside a list of actions, in a window whose title, icon and state change.

#include "BarActions.h"
#include "KestSeparator.h"
#include "KestTitleBar.h"
#include "KestToolButton.h"

#include <QtCore/QSet>
#include <QtCore/QVariant>
#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QWidgetAction>

namespace {

bool hasWidget(const QAction *action)
{
    const auto *const custom = qobject_cast<const QWidgetAction *>(action);
    return custom && custom->defaultWidget();
}

class TitleBarTrial
{
public:
    explicit TitleBarTrial(FuzzInput &input)
        : m_input(input),
          m_actions([this] { interrupt(); }),
          m_window(new QWidget),
          m_bar(new KestTitleBar(m_window)),
          m_interruption(m_bar, [this](bool mayDelete) { interrupt(mayDelete); }),
          m_left(input.byte()),
          m_deletes(input.below(4) == 0)
    {
        // An action that changes leaves the bar.
        m_actions.onChanged([this](QAction *action) { m_shown.removeAll(action); });
        QObject::connect(m_bar, &KestTitleBar::actionIconSizeChanged, qApp,
                         [this] { interrupt(); });
        m_window->resize(500, 100);
        // Room for an icon millions of pixels away would make it a window as large, to be painted.
        m_bar->setMinimumWidth(1);
    }
    ~TitleBarTrial()
    {
        m_left = -1;
        delete m_bar;
        delete m_window;
    }

    void run()
    {
        while (m_bar && m_window && !m_input.atEnd()) {
            m_interrupted = false;
            step();
            if (m_bar && m_window)
                check();
        }
    }

private:
    void step();
    void changeWindow();
    void changeLook();
    void interrupt(bool mayDelete = true);
    void check();
    void paint();

    FuzzInput &m_input;
    BarActions m_actions;
    QPointer<QWidget> m_window;
    QPointer<KestTitleBar> m_bar;
    BarInterruption m_interruption;
    QList<QAction *> m_shown;
    QSet<QAction *> m_custom; // which of them came with a widget
    int m_left; // calls out of the bar until one is answered
    bool m_deletes;
    bool m_interrupted = false;
    bool m_quiet = false;
};

void TitleBarTrial::step()
{
    switch (m_input.below(14)) {
    case 0:
    case 1:
    case 2: {
        QAction *const action = m_actions.any(m_input);
        QAction *const before = m_actions.any(m_input);
        if (!action)
            break;
        m_shown.removeAll(action);
        const int index = m_shown.indexOf(before);
        m_shown.insert(index < 0 ? m_shown.size() : index, action);
        m_custom.remove(action);
        if (hasWidget(action))
            m_custom.insert(action);
        // QWidget takes it away first where it is there, and goes on with both whatever happens.
        m_quiet = m_bar->actions().contains(action);
        m_bar->insertAction(before, action);
        m_quiet = false;
        break;
    }
    case 3: {
        QAction *const action = m_actions.any(m_input);
        m_shown.removeAll(action);
        m_bar->removeAction(action);
        break;
    }
    case 4:
    case 5:
        m_actions.change(m_input);
        break;
    case 6:
        if (QWidget *const widget = widgetOf(m_bar, m_actions.any(m_input)))
            clickInto(widget);
        break;
    case 7:
        switch (m_input.below(4)) {
        case 0:
            m_bar->menuBar()->addMenu(m_input.text(6));
            break;
        case 1:
            m_bar->setMenuBar(m_input.flag() ? new QMenuBar : nullptr);
            break;
        case 2:
            delete m_bar->findChild<QMenuBar *>();
            break;
        default:
            m_bar->setMenuBar(m_bar->findChild<QMenuBar *>());
            break;
        }
        break;
    case 8:
    case 9:
        changeLook();
        break;
    case 10:
    case 11:
        changeWindow();
        break;
    case 12:
        if (m_input.below(32) == 0)
            delete m_bar->findChild<QWidget *>(QStringLiteral("maximumSizeBtn"));
        else if (m_input.flag())
            m_bar->onMaximumSizeBtn();
        else
            m_bar->onMinimumSizeBtn();
        break;
    default:
        settle();
        if (m_bar)
            paint();
        break;
    }
}

void TitleBarTrial::changeLook()
{
    switch (m_input.below(7)) {
    case 0: {
        const QSize size(m_input.below(64), m_input.below(64));
        m_bar->setActionIconSize(size);
        FUZZ_CHECK(m_interrupted || m_bar->getActionIconSize() == size, QString());
        break;
    }
    case 1:
        m_bar->setIconVisible(m_input.flag());
        break;
    case 2:
        m_bar->setIconSize(m_input.size());
        m_bar->updateWindowIcon();
        break;
    case 3: {
        QPixmap pixmap(m_input.below(80), 1 + m_input.below(80));
        if (!pixmap.isNull())
            pixmap.fill(Qt::blue);
        m_bar->setIconPixmap(pixmap);
        FUZZ_CHECK(m_interrupted || !m_bar->iconIsVisible(), QString());
        break;
    }
    case 4:
        m_bar->setIconPos(m_input.size());
        break;
    case 5:
        m_bar->setProperty("geoRate", m_input.number());
        break;
    default:
        m_bar->setLayoutDirection(m_input.flag() ? Qt::RightToLeft : Qt::LeftToRight);
        break;
    }
}

void TitleBarTrial::changeWindow()
{
    switch (m_input.below(8)) {
    case 0:
        m_window->setWindowTitle(m_input.text(20));
        break;
    case 1:
        m_window->setWindowModified(m_input.flag());
        break;
    case 2:
        m_window->setWindowIcon(anyIcon(m_input));
        break;
    case 3:
        m_window->setWindowState(Qt::WindowStates(m_input.below(16)));
        break;
    case 4:
        m_window->setVisible(m_input.flag());
        break;
    case 5:
        if (m_input.flag())
            m_window->setFixedSize(1 + m_input.below(900), 1 + m_input.below(200));
        else
            m_window->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
        break;
    case 6:
        m_bar->setParent(m_input.flag() ? m_window.data() : nullptr);
        break;
    default:
        m_bar->resize(m_input.below(256) * 4, m_input.below(64));
        break;
    }
}

void TitleBarTrial::paint()
{
    QImage image(m_bar->size().expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    image.fill(0);
    m_quiet = true; // no widget can end while it is painted
    m_bar->render(&image);
    m_quiet = false;
}

// Once, the host does something of its own in the midst of what the bar does, or ends the bar.
void TitleBarTrial::interrupt(bool mayDelete)
{
    if (m_quiet || m_left < 0 || (m_deletes && !mayDelete) || m_left-- > 0)
        return;
    m_interrupted = true;
    if (m_deletes)
        delete m_bar;
    else if (m_bar && m_window && mayDelete)
        step();
    else if (m_bar)
        m_bar->removeAction(m_actions.any(m_input)); // widgets stay where they are
}

void TitleBarTrial::check()
{
    auto *const row = m_bar->findChild<QHBoxLayout *>(QStringLiteral("actionLayout"));
    QList<QAction *> buttons;
    int separators = 0;
    for (int i = 0; i < row->count(); ++i) {
        QWidget *const widget = row->itemAt(i)->widget();
        FUZZ_CHECK(widget && widget->parentWidget() == m_bar, QString::number(i));
        if (qobject_cast<KestSeparator *>(widget))
            ++separators;
        auto *const shown = qobject_cast<KestToolButton *>(widget);
        if (!shown)
            continue;
        FUZZ_CHECK(shown->defaultAction() && m_bar->actions().contains(shown->defaultAction()),
                   shown->text());
        if (!hasWidget(shown->defaultAction())) {
            buttons.append(shown->defaultAction());
            FUZZ_CHECK(shown->iconSize() == m_bar->getActionIconSize(), shown->text());
            FUZZ_CHECK(shown->isHidden() != shown->defaultAction()->isVisible(), shown->text());
        }
    }
    // No button stays behind where its action has left.
    for (KestToolButton *shown : m_bar->findChildren<KestToolButton *>()) {
        FUZZ_CHECK(shown->isHidden() || hasWidget(shown->defaultAction())
                       || row->indexOf(shown) >= 0,
                   shown->text());
    }

    if (m_interrupted) {
        // What is on the bar depends on the moment: the model begins anew.
        const QList<QAction *> actions = m_bar->actions();
        for (QAction *action : actions)
            m_bar->removeAction(action);
        m_shown.clear();
        FUZZ_CHECK(row->isEmpty(), QString::number(row->count()));
        return;
    }
    int index = 0;
    int expectedSeparators = 0;
    for (int i = m_shown.size() - 1; i >= 0; --i) {
        if (!m_bar->actions().contains(m_shown.at(i)))
            m_shown.removeAt(i); // it has died
    }
    for (QAction *action : qAsConst(m_shown)) {
        if (m_custom.contains(action))
            continue;
        if (action->isSeparator())
            ++expectedSeparators;
        else
            FUZZ_CHECK(buttons.value(index++) == action, QString::number(index));
    }
    FUZZ_CHECK(index == buttons.size(),
               QStringLiteral("%1, not %2").arg(buttons.size()).arg(index));
    FUZZ_CHECK(separators == expectedSeparators,
               QStringLiteral("%1, not %2").arg(separators).arg(expectedSeparators));
}

} // namespace

void tryTitleBar(FuzzInput &input)
{
    TitleBarTrial(input).run();
}
