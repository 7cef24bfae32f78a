// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Contest.h"
#include "FilledWindow.h"
#include "ShownWidget.h"

#ifdef KEST_BENCH_DTK
#    include <DDialog>
#    include <DIpv4LineEdit>
#    include <DMainWindow>
#    include <DSwitchButton>
#    include <DTitlebar>
#    include <dcircleprogress.h>
#endif
#ifdef KEST_BENCH_KDE
#    include <KMessageDialog>
#endif

#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolBar>

#include <memory>

#ifdef KEST_BENCH_DTK
DWIDGET_USE_NAMESPACE
#endif

namespace {

#ifdef KEST_BENCH_DTK

std::unique_ptr<DMainWindow> dtkWindow()
{
    auto window = std::make_unique<DMainWindow>();
    // Its title bar has a place for a menu bar of its own making; the bars are those of
    // QMainWindow.
    auto *menus = new QMenuBar;
    fillMenus(menus);
    window->titlebar()->addWidget(menus, Qt::AlignLeft);
    for (int i = 0; i < 2; ++i) {
        QToolBar *bar = window->addToolBar(QString());
        for (int j = 0; j < ActionCount; ++j)
            bar->addAction(actionIcon(), QStringLiteral("Action %1").arg(j));
        window->addToolBarBreak();
    }
    window->statusBar()->showMessage(QStringLiteral("Ready"));
    auto *central = new QWidget;
    central->setAutoFillBackground(true);
    window->setCentralWidget(central);
    window->resize(WindowSize);
    return window;
}

Work dtkFirstPaint()
{
    auto window = std::make_shared<std::unique_ptr<DMainWindow>>();
    return [window] {
        *window = dtkWindow();
        showAndPaint(window->get());
    };
}

Work dtkDialog()
{
    return [] {
        DDialog box(QStringLiteral("Close"), QStringLiteral("Save the changes?"));
        box.addButton(QStringLiteral("Yes"));
        box.addButton(QStringLiteral("No"));
        showAndPaint(&box);
        box.close();
    };
}

Work dtkAddress()
{
    auto *edit = new DIpv4LineEdit;
    edit->setText(QStringLiteral("192.168.100.200"));
    const QList<QLineEdit *> fields = edit->findChildren<QLineEdit *>();
    for (QLineEdit *field : fields) {
        if (field->focusPolicy() != Qt::NoFocus)
            return paintFocused(edit, field);
    }
    qFatal("the address edit takes no focus");
}

Work dtkRing()
{
    auto *ring = new DCircleProgress;
    ring->resize(100, 100);
    return setAndPaintValues(ring);
}

#endif

#ifdef KEST_BENCH_KDE

Work kdeDialog()
{
    return [] {
        KMessageDialog box(KMessageDialog::QuestionTwoActions, QStringLiteral("Save the changes?"));
        box.setCaption(QStringLiteral("Close"));
        showAndPaint(&box);
        box.close();
    };
}

#endif

} // namespace

QVector<Contestant> peers(const QString &row)
{
    QVector<Contestant> result;
#ifdef KEST_BENCH_DTK
    if (row == QLatin1String("firstPaint"))
        result.append({ "DMainWindow", dtkFirstPaint });
    if (row == QLatin1String("messageBox"))
        result.append({ "DDialog", dtkDialog });
    if (row.startsWith(QLatin1String("switch")))
        result.append({ "DSwitchButton", [] { return toggleAndPaint(new DSwitchButton); } });
    if (row == QLatin1String("addressPaint"))
        result.append({ "DIpv4LineEdit", dtkAddress });
    if (row == QLatin1String("circleBar"))
        result.append({ "DCircleProgress", dtkRing });
#endif
#ifdef KEST_BENCH_KDE
    if (row == QLatin1String("messageBox"))
        result.append({ "KMessageDialog", kdeDialog });
#endif
    return result;
}
