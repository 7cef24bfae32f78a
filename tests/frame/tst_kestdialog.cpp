// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestDialog.h"

#include "KestTitleBar.h"
#include "MoveBarProbe.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

namespace {

void deleteDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class tst_KestDialog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void dialogIsTopLevelWithAndWithoutParent();
    void dialogOffersAllWindowButtons();
    void metaObjectAddsNothing();
    void layoutHoldsTitleBarAndCentralWidget();
    void rowsFollowOneAnotherOnTheShownDialog();

    void titleBarIsCreatedOnTopWhereThereIsNone();
    void titleBarIsCreatedAnewAfterItWasDeleted();
    void replacedTitleBarIsHiddenAndDeletedLater();
    void sameTitleBarAgainChangesNothing();

    void replacedCentralWidgetIsHiddenAndDeletedLater();
    void sameCentralWidgetAgainChangesNothing();
    void clearedCentralWidgetIsDeletedLater();
    void centralWidgetDeletedByItsOwnerIsForgotten();
    void centralWidgetDoesNotResizeTheDialog();
    void centralWidgetsTitleIsTakenUnlessEmpty();
    void centralWidgetsTitleIsFollowed();
    void replacedCentralWidgetIsNotFollowed();

    void innerDialogsResultIsTheFrames_data();
    void innerDialogsResultIsTheFrames();
    void innerDialogFillsTheFrame();
    void widgetThatIsNoDialogLeavesTheFrameOpen();

    void titleBarMovesTheDialog();
    void newTitleBarMovesTheDialogAtOnce();
    void furtherMoveBarsMoveTheDialog();

    void hidingTakesTheHoverFromTheCloseButton();
    void hidingWithoutTitleBarIsFine();
    void closeButtonRejects();
    void escapeRejects();
    void partsMayDieInAnyOrder();
    void dialogDiesWithItsParent();
};

void tst_KestDialog::dialogIsTopLevelWithAndWithoutParent()
{
    QWidget parent;
    KestDialog alone;
    auto *child = new KestDialog(&parent);
    for (KestDialog *dialog : { &alone, child }) {
        QVERIFY(dialog->isWindow());
        QCOMPARE(dialog->windowType(), Qt::Dialog);
        QVERIFY(dialog->windowFlags().testFlag(Qt::FramelessWindowHint));
    }
    QCOMPARE(child->parentWidget(), &parent);
    parent.show();
    child->show();
    QVERIFY(child->windowHandle());
    QVERIFY(child->windowHandle()->isTopLevel());
    QCOMPARE(child->windowHandle()->transientParent(), parent.windowHandle());
}

void tst_KestDialog::dialogOffersAllWindowButtons()
{
    KestDialog dialog;
    dialog.show();
    for (const char *name : { "minimumSizeBtn", "maximumSizeBtn", "closeBtn" }) {
        const auto *button = dialog.titleBar()->findChild<QWidget *>(QLatin1String(name));
        QVERIFY2(button && button->isVisible(), name);
    }
}

void tst_KestDialog::metaObjectAddsNothing()
{
    const QMetaObject &meta = KestDialog::staticMetaObject;
    QCOMPARE(meta.methodCount(), meta.methodOffset());
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_KestDialog::layoutHoldsTitleBarAndCentralWidget()
{
    KestDialog dialog;
    auto *layout = qobject_cast<QVBoxLayout *>(dialog.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), dialog.titleBar());
    QCOMPARE(layout->itemAt(1)->widget(), dialog.centralWidget());
    QCOMPARE(layout->stretch(0), 0);
    QCOMPARE(layout->stretch(1), 1);
    QCOMPARE(dialog.centralWidget()->metaObject()->className(), "QWidget");
    QCOMPARE(dialog.titleBar()->parentWidget(), &dialog);
}

void tst_KestDialog::rowsFollowOneAnotherOnTheShownDialog()
{
    KestDialog dialog;
    dialog.resize(400, 300);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const QRect inner = dialog.contentsRect();
    QCOMPARE(dialog.titleBar()->geometry().topLeft(), inner.topLeft());
    QCOMPARE(dialog.titleBar()->geometry().right(), inner.right());
    QCOMPARE(dialog.centralWidget()->geometry().top(), dialog.titleBar()->geometry().bottom() + 1);
    QCOMPARE(dialog.centralWidget()->geometry().bottomRight(), inner.bottomRight());
    const int height = dialog.centralWidget()->height();
    dialog.resize(400, 333);
    QCOMPARE(dialog.centralWidget()->height(), height + 33);
}

void tst_KestDialog::titleBarIsCreatedOnTopWhereThereIsNone()
{
    KestDialog dialog;
    const QPointer<KestTitleBar> first(dialog.titleBar());
    dialog.setTitleBar(nullptr);
    QVERIFY(first->isHidden());
    deleteDeferred();
    QVERIFY(first.isNull());
    QCOMPARE(dialog.layout()->count(), 1);
    QVERIFY(!dialog.findChild<KestTitleBar *>());

    KestTitleBar *const second = dialog.titleBar();
    QVERIFY(second);
    QCOMPARE(dialog.layout()->itemAt(0)->widget(), second);
    QCOMPARE(dialog.layout()->itemAt(1)->widget(), dialog.centralWidget());
    QVERIFY(movesItsWindow(second));
}

void tst_KestDialog::titleBarIsCreatedAnewAfterItWasDeleted()
{
    KestDialog dialog;
    dialog.show();
    delete dialog.titleBar();
    QVERIFY(dialog.titleBar());
    QCOMPARE(dialog.layout()->itemAt(0)->widget(), dialog.titleBar());
    QTRY_VERIFY(dialog.titleBar()->isVisible());
    QVERIFY(movesItsWindow(dialog.titleBar()));
}

void tst_KestDialog::replacedTitleBarIsHiddenAndDeletedLater()
{
    KestDialog dialog;
    dialog.show();
    const QPointer<KestTitleBar> old(dialog.titleBar());
    auto *bar = new KestTitleBar(&dialog);
    dialog.setTitleBar(bar);
    QVERIFY(old->isHidden());
    QCOMPARE(old->parentWidget(), &dialog);
    QVERIFY(!movesItsWindow(old));
    deleteDeferred();
    QVERIFY(old.isNull());
    QCOMPARE(dialog.titleBar(), bar);
    QCOMPARE(dialog.layout()->count(), 2);
    QCOMPARE(dialog.layout()->itemAt(0)->widget(), bar);
}

void tst_KestDialog::sameTitleBarAgainChangesNothing()
{
    KestDialog dialog;
    KestTitleBar *const bar = dialog.titleBar();
    dialog.setTitleBar(bar);
    deleteDeferred();
    QCOMPARE(dialog.titleBar(), bar);
    QVERIFY(!bar->isHidden());
    QCOMPARE(dialog.layout()->count(), 2);
}

void tst_KestDialog::replacedCentralWidgetIsHiddenAndDeletedLater()
{
    KestDialog dialog;
    dialog.show();
    const QPointer<QWidget> old(dialog.centralWidget());
    auto *label = new QLabel;
    dialog.setCentralWidget(label);
    QCOMPARE(dialog.centralWidget(), label);
    QCOMPARE(label->parentWidget(), &dialog);
    QVERIFY(old->isHidden());
    QCOMPARE(old->parentWidget(), &dialog);
    deleteDeferred();
    QVERIFY(old.isNull());
    QCOMPARE(dialog.layout()->count(), 2);
    QCOMPARE(dialog.layout()->itemAt(1)->widget(), label);
    QTRY_VERIFY(label->isVisible());
}

void tst_KestDialog::sameCentralWidgetAgainChangesNothing()
{
    KestDialog dialog;
    const QPointer<QWidget> central(dialog.centralWidget());
    dialog.setCentralWidget(central);
    deleteDeferred();
    QVERIFY(!central.isNull());
    QVERIFY(!central->isHidden());
    QCOMPARE(dialog.layout()->count(), 2);
}

void tst_KestDialog::clearedCentralWidgetIsDeletedLater()
{
    KestDialog dialog;
    const QPointer<QWidget> central(dialog.centralWidget());
    dialog.setCentralWidget(nullptr);
    QVERIFY(!dialog.centralWidget());
    QVERIFY(central->isHidden());
    deleteDeferred();
    QVERIFY(central.isNull());
    QCOMPARE(dialog.layout()->count(), 1);
}

void tst_KestDialog::centralWidgetDeletedByItsOwnerIsForgotten()
{
    KestDialog dialog;
    delete dialog.centralWidget();
    QVERIFY(!dialog.centralWidget());
    auto *label = new QLabel;
    dialog.setCentralWidget(label);
    QCOMPARE(dialog.centralWidget(), label);
}

void tst_KestDialog::centralWidgetDoesNotResizeTheDialog()
{
    KestDialog dialog;
    dialog.resize(320, 240);
    auto *central = new QWidget;
    central->resize(700, 500);
    dialog.setCentralWidget(central);
    QCOMPARE(dialog.size(), QSize(320, 240));
}

void tst_KestDialog::centralWidgetsTitleIsTakenUnlessEmpty()
{
    KestDialog dialog;
    dialog.setWindowTitle(QStringLiteral("kept"));
    dialog.setCentralWidget(new QWidget);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("kept"));
    auto *titled = new QWidget;
    titled->setWindowTitle(QStringLiteral("taken"));
    dialog.setCentralWidget(titled);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("taken"));
}

void tst_KestDialog::centralWidgetsTitleIsFollowed()
{
    KestDialog dialog;
    dialog.centralWidget()->setWindowTitle(QStringLiteral("one"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("one"));
    dialog.centralWidget()->setWindowTitle(QString());
    QCOMPARE(dialog.windowTitle(), QString());
}

void tst_KestDialog::replacedCentralWidgetIsNotFollowed()
{
    KestDialog dialog;
    QWidget *const old = dialog.centralWidget();
    dialog.setCentralWidget(new QWidget);
    dialog.setWindowTitle(QStringLiteral("kept"));
    old->setWindowTitle(QStringLiteral("stale"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("kept"));
}

void tst_KestDialog::innerDialogsResultIsTheFrames_data()
{
    QTest::addColumn<int>("result");
    QTest::newRow("accepted") << int(QDialog::Accepted);
    QTest::newRow("rejected") << int(QDialog::Rejected);
    QTest::newRow("own code") << 42;
}

void tst_KestDialog::innerDialogsResultIsTheFrames()
{
    QFETCH(int, result);
    KestDialog frame;
    auto *inner = new QDialog;
    frame.setCentralWidget(inner);
    QSignalSpy finished(&frame, &QDialog::finished);
    QTimer::singleShot(0, inner, [inner, result] { inner->done(result); });
    QCOMPARE(frame.exec(), result);
    QCOMPARE(finished.count(), 1);
    QVERIFY(!frame.isVisible());
}

void tst_KestDialog::innerDialogFillsTheFrame()
{
    KestDialog frame;
    auto *inner = new QDialog;
    inner->setWindowTitle(QStringLiteral("inner"));
    frame.setCentralWidget(inner);
    frame.resize(500, 400);
    for (int show = 0; show < 2; ++show) {
        frame.show();
        QVERIFY(QTest::qWaitForWindowExposed(&frame));
        QVERIFY(!inner->isWindow());
        QVERIFY(inner->isVisible());
        const QRect inside = frame.contentsRect();
        QCOMPARE(inner->geometry(), inside.adjusted(0, frame.titleBar()->height(), 0, 0));
        frame.hide();
    }
    QCOMPARE(frame.windowTitle(), QStringLiteral("inner"));
}

void tst_KestDialog::widgetThatIsNoDialogLeavesTheFrameOpen()
{
    KestDialog frame;
    auto *central = new QWidget;
    frame.setCentralWidget(central);
    frame.show();
    central->close();
    QVERIFY(frame.isVisible());
}

void tst_KestDialog::titleBarMovesTheDialog()
{
    KestDialog dialog;
    dialog.resize(400, 300);
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QVERIFY(movesItsWindow(dialog.titleBar()));
    QVERIFY(!movesItsWindow(dialog.centralWidget()));
}

void tst_KestDialog::newTitleBarMovesTheDialogAtOnce()
{
    KestDialog dialog;
    dialog.resize(400, 300);
    auto *bar = new KestTitleBar(&dialog);
    dialog.setTitleBar(bar);
    QVERIFY(!bar->isVisible());
    QVERIFY(movesItsWindow(bar));
}

void tst_KestDialog::furtherMoveBarsMoveTheDialog()
{
    KestDialog dialog;
    dialog.resize(400, 300);
    dialog.addMoveBar(dialog.centralWidget());
    QVERIFY(movesItsWindow(dialog.centralWidget()));
    dialog.removeMoveBar(dialog.centralWidget());
    QVERIFY(!movesItsWindow(dialog.centralWidget()));
    dialog.addMoveBar(nullptr);
    dialog.removeMoveBar(nullptr);
}

void tst_KestDialog::hidingTakesTheHoverFromTheCloseButton()
{
    KestDialog dialog;
    dialog.show();
    auto *button = dialog.titleBar()->findChild<QToolButton *>(QStringLiteral("closeBtn"));
    QVERIFY(button);
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(button, &enter);
    QVERIFY(button->underMouse());
    dialog.hide();
    QVERIFY(!button->underMouse());
    dialog.show();
    QVERIFY(!button->underMouse());
}

void tst_KestDialog::hidingWithoutTitleBarIsFine()
{
    KestDialog dialog;
    dialog.setTitleBar(nullptr);
    deleteDeferred();
    dialog.show();
    dialog.hide();
    QVERIFY(!dialog.isVisible());
}

void tst_KestDialog::closeButtonRejects()
{
    KestDialog dialog;
    QTimer::singleShot(0, &dialog, [&dialog] {
        auto *button = dialog.titleBar()->findChild<QToolButton *>(QStringLiteral("closeBtn"));
        dialog.setResult(QDialog::Accepted);
        QTest::mouseClick(button, Qt::LeftButton);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Rejected));
}

void tst_KestDialog::escapeRejects()
{
    KestDialog dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QSignalSpy rejected(&dialog, &QDialog::rejected);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCOMPARE(rejected.count(), 1);
    QVERIFY(!dialog.isVisible());
}

void tst_KestDialog::partsMayDieInAnyOrder()
{
    for (const bool titleBarFirst : { true, false }) {
        KestDialog dialog;
        dialog.show();
        if (titleBarFirst)
            delete dialog.titleBar();
        delete dialog.centralWidget();
        if (!titleBarFirst)
            delete dialog.titleBar();
        dialog.resize(300, 200);
        QVERIFY(!dialog.centralWidget());
    }
}

void tst_KestDialog::dialogDiesWithItsParent()
{
    auto *parent = new QWidget;
    const QPointer<KestDialog> dialog(new KestDialog(parent));
    dialog->show();
    delete parent;
    QVERIFY(dialog.isNull());
}

QTEST_MAIN(tst_KestDialog)
#include "tst_kestdialog.moc"
