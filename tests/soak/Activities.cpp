// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Activities.h"

#include "KestApplication.h"
#include "KestCircleProgressBar.h"
#include "KestComboBox.h"
#include "KestDialog.h"
#include "KestIPAddressEdit.h"
#include "KestLoadingDialog.h"
#include "KestMessageBox.h"
#include "KestNavigationBar.h"
#include "KestStageProgressBar.h"
#include "KestStyleSheet.h"
#include "KestSwitchButton.h"
#include "KestTitleBar.h"
#include "KestWindow.h"

#include <QAction>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QVBoxLayout>

#include <memory>

namespace {

const int PageWidgets = 5; // on each of the pages below

void present(QWidget *window)
{
    window->show();
    if (!QTest::qWaitForWindowExposed(window))
        qFatal("soak: a window is not exposed");
}

QIcon dot()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    return pixmap;
}

struct Page : QWidget
{
    Page()
    {
        auto *const layout = new QVBoxLayout(this);
        for (QWidget *widget :
             std::initializer_list<QWidget *> { switchButton, address, stages, circle, combo }) {
            widget->setStyleSheet(QStringLiteral("margin: 1px; padding: 2px 3px"));
            layout->addWidget(widget);
        }
        combo->addItems({ QStringLiteral("one"), QStringLiteral("two") });
        stages->setStageCount(3);
        stages->setTextVisible(true);
    }

    KestSwitchButton *switchButton = new KestSwitchButton;
    KestIPAddressEdit *address = new KestIPAddressEdit;
    KestStageProgressBar *stages = new KestStageProgressBar;
    KestCircleProgressBar *circle = new KestCircleProgressBar;
    KestComboBox *combo = new KestComboBox;
};

// As many widgets of Qt's own.
struct PlainPage : QWidget
{
    PlainPage()
    {
        auto *const layout = new QVBoxLayout(this);
        for (int i = 0; i < PageWidgets; ++i) {
            buttons.append(new QPushButton(QString::number(i)));
            buttons.last()->setStyleSheet(QStringLiteral("margin: 1px; padding: 2px 3px"));
            layout->addWidget(buttons.last());
        }
    }

    QVector<QPushButton *> buttons;
};

// A window with all that one can have.
struct FullWindow : KestWindow
{
    FullWindow()
    {
        setCentralWidget(page);
        menuBar()->addMenu(QStringLiteral("File"))->addAction(QStringLiteral("Quit"));
        titleBar()->addAction(new QAction(dot(), QStringLiteral("Search"), this));
        KestNavigationBar *const bar = navigationBar();
        bar->addLogo(dot(), KestNavigationBar::Left);
        bar->addAction(dot(), QStringLiteral("New"), KestNavigationBar::Left);
        bar->addSeparator(KestNavigationBar::Center)->setParent(bar);
        bar->addHelp(QUrl(), dot(), KestNavigationBar::Right);
        bar->addUser(dot(), QStringLiteral("Somebody"), KestNavigationBar::Right);
        statusBar()->showMessage(QStringLiteral("Ready"));
    }

    Page *page = new Page;
};

// One window for all rounds.
std::shared_ptr<FullWindow> shownWindow()
{
    auto window = std::make_shared<FullWindow>();
    present(window.get());
    return window;
}

Activity windows()
{
    return [](int round) {
        auto *const window = new FullWindow;
        present(window);
        if (round % 3 == 0)
            window->showMaximized();
        window->resize(500 + round % 50, 400);
        QCoreApplication::processEvents();
        window->setTitleBar(new KestTitleBar);
        window->setMenuBar(new QMenuBar);
        window->setNavigationBar(new KestNavigationBar);
        window->setStatusBar(new QStatusBar);
        window->setCentralWidget(new QLabel(QStringLiteral("Nothing")));
        window->close();
        if (round % 2)
            delete window;
        else
            window->deleteLater();
    };
}

Activity dialogs()
{
    return [window = shownWindow()](int round) {
        KestDialog dialog(round % 2 ? window.get() : nullptr);
        dialog.setCentralWidget(new Page);
        dialog.setWindowTitle(QString::number(round));
        present(&dialog);
        dialog.reject();
    };
}

Activity messageBoxes()
{
    return [window = shownWindow()](int round) {
        KestMessageBox box(KestMessageBox::Icon(round % 5), QStringLiteral("Title"),
                           QString(QStringLiteral("text ")).repeated(round % 30),
                           KestMessageBox::Ok | KestMessageBox::Cancel, window.get());
        box.addButton(QStringLiteral("More"), KestMessageBox::ActionRole);
        QPushButton *const close = box.addButton(KestMessageBox::Close);
        QTimer::singleShot(0, close, &QPushButton::click);
        box.exec();
    };
}

Activity overlays()
{
    return [window = shownWindow()](int round) {
        KestLoadingDialog overlay(window.get());
        overlay.setCancelEnable(round % 2);
        QTimer::singleShot(1, &overlay, [&overlay, round] {
            if (round % 2)
                overlay.cancel();
            else
                overlay.done();
        });
        overlay.exec();
    };
}

Activity actions()
{
    return [window = shownWindow()](int round) {
        QAction temporary(dot(), QStringLiteral("Temporary"));
        window->titleBar()->addAction(&temporary);
        const auto position = KestNavigationBar::ActionPosition(round % 3);
        QAction *const added = window->navigationBar()->addAction(QString::number(round), position);
        QAction *const separator = window->navigationBar()->insertSeparator(0, position);
        QCoreApplication::processEvents();
        added->setVisible(false);
        added->setEnabled(false);
        temporary.setText(QString::number(round));
        added->setVisible(true);
        QCoreApplication::processEvents();
        window->navigationBar()->removeAction(separator);
        delete separator;
        delete added;
    };
}

Activity values()
{
    return [window = shownWindow()](int round) {
        const Page &page = *window->page;
        page.switchButton->toggle();
        page.address->setIPAddress(QStringLiteral("10.0.%1.1").arg(round % 256));
        page.stages->setValue(round % 100);
        page.stages->setText(round % 3, QString::number(round));
        page.circle->setRange(0, round % 50 ? 100 : 0); // busy now and then
        page.circle->setValue(round % 100);
        page.combo->setCurrentIndex(round % 2);
        page.combo->showPopup();
        window->setWindowTitle(QString::number(round));
        window->setWindowIcon(round % 2 ? dot() : QIcon());
        QCoreApplication::processEvents();
        page.combo->hidePopup();
        QCoreApplication::processEvents();
    };
}

// Gives a window's application one theme after another.
template <typename Window>
Activity themesOf(const std::shared_ptr<Window> &window)
{
    // Removed when the activity ends, for those that follow.
    const std::shared_ptr<QString> before(new QString(qApp->styleSheet()), [](QString *sheet) {
        qApp->setStyleSheet(*sheet);
        delete sheet;
    });
    QVector<QString> sheets;
    for (float rate : { 1.0F, 1.5F, 2.0F })
        sheets << KestStyleSheet::scaleSheet(KestStyleSheet::defaultStyleSheet(), rate);
    return [window, before, sheets](int round) {
        qApp->setStyleSheet(sheets[round % sheets.size()]);
        QCoreApplication::processEvents();
    };
}

Activity themes()
{
    return themesOf(shownWindow());
}

std::shared_ptr<QMainWindow> plainWindow(PlainPage *page)
{
    auto window = std::make_shared<QMainWindow>();
    window->setCentralWidget(page);
    present(window.get());
    return window;
}

Activity plainThemes()
{
    return themesOf(plainWindow(new PlainPage));
}

Activity rescaling()
{
    return [window = shownWindow()](int round) {
        const double rate = 1 + round % 4 / 4.0;
        window->ChangeObjectSizeAndFontSize(window.get(), rate, rate);
        QCoreApplication::processEvents();
    };
}

Activity plainRescaling()
{
    auto *const page = new PlainPage;
    return [window = plainWindow(page), page](int round) {
        const float rate = 1 + float(round % 4) / 4;
        for (QPushButton *button : qAsConst(page->buttons)) {
            button->setStyleSheet(
                KestStyleSheet::scaleSheet(QStringLiteral("margin: 1px; padding: 2px 3px"), rate));
        }
        QCoreApplication::processEvents();
    };
}

} // namespace

QVector<NamedActivity> activities()
{
    return {
        { "windows", windows, nullptr },
        { "dialogs", dialogs, nullptr },
        { "message boxes", messageBoxes, nullptr },
        { "overlays", overlays, nullptr },
        { "actions", actions, nullptr },
        { "values", values, nullptr },
        { "themes", themes, plainThemes },
        { "rescaling", rescaling, plainRescaling },
    };
}
