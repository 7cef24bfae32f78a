// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Contest.h"

#include "KestNavigationBar.h"
#include "KestTitleBar.h"

#include <QAction>
#include <QtCore/QCoreApplication>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QVBoxLayout>

#include <memory>

namespace {

// Deferred deletions are part of the work, whoever defers them.
template <class Bar>
Work addAndRemove(int count, bool shown)
{
    auto window = std::make_shared<QWidget>();
    auto *layout = new QVBoxLayout(window.get());
    auto *bar = new Bar(window.get());
    layout->addWidget(bar);
    layout->addStretch(1);
    window->resize(800, 600);
    if (shown)
        showAndPaint(window.get());
    QList<QAction *> actions;
    for (int i = 0; i < count; ++i)
        actions.append(new QAction(QString::number(i), window.get()));
    return [window, bar, actions] {
        for (QAction *action : actions)
            bar->QWidget::addAction(action);
        for (QAction *action : actions)
            bar->removeAction(action);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
}

Row actionRow(const QString &name, int count, bool shown)
{
    return { name,
             3,
             { { "KestNavigationBar",
                 [=] { return addAndRemove<KestNavigationBar>(count, shown); } },
               { "KestTitleBar", [=] { return addAndRemove<KestTitleBar>(count, shown); } },
               { "QToolBar", [=] { return addAndRemove<QToolBar>(count, shown); } } } };
}

} // namespace

QVector<Row> barRows()
{
    return { actionRow("actionsShown", 2000, true), actionRow("actionsHidden", 2000, false),
             actionRow("fewActionsShown", 200, true), actionRow("fewActionsHidden", 200, false) };
}
