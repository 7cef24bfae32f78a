// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestDialog.h"

#include "KestTitleBar.h"
#include "MoveBarProbe.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtCore/QScopedPointer>
#include <QtCore/QTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <functional>
#include <utility>

namespace {

void deleteDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Calls back when something happens to a widget, once.
class Once : public QObject
{
    Q_OBJECT

public:
    Once(QObject *watched, QEvent::Type type, std::function<void()> act)
        : m_type(type), m_act(std::move(act))
    {
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == m_type && m_act)
            std::exchange(m_act, nullptr)();
        return false;
    }

private:
    QEvent::Type m_type;
    std::function<void()> m_act;
};

bool activate(QWidget *window)
{
    window->show();
    QApplication::setActiveWindow(window);
    return QTest::qWaitForWindowActive(window);
}

// A form as it is usually written: a QDialog with a text and the buttons for it.
class Form : public QDialog
{
    Q_OBJECT

public:
    Form()
    {
        auto *layout = new QVBoxLayout(this);
        auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        layout->addWidget(text);
        layout->addWidget(edit);
        layout->addWidget(buttons);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    }

    QPlainTextEdit *const text = new QPlainTextEdit;
    QLineEdit *const edit = new QLineEdit;
};

// Counts the paints of a window when the pointer enters or leaves it.
int paintsForHover(QWidget *window, QEvent::Type type)
{
    class PaintCounter : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
        int paints = 0;
    };
    for (int i = 0; i < 5; ++i)
        QCoreApplication::processEvents();
    PaintCounter counter;
    window->installEventFilter(&counter);
    QHoverEvent event(type, QPointF(60, 60), QPointF(-1, -1));
    QCoreApplication::sendEvent(window, &event);
    QCoreApplication::processEvents();
    return counter.paints;
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
    void innerDialogIsShownAgain_data();
    void innerDialogIsShownAgain();
    void innerDialogThatTheHostHidStaysHidden();
    void refusedResultLeavesTheInnerDialogThere();
    void replacedInnerDialogNoLongerFinishesTheFrame();
    void widgetThatIsNoDialogLeavesTheFrameOpen();

    void firstFocusIsThatOfTheContents_data();
    void firstFocusIsThatOfTheContents();
    void focusIsThatOfTheContentsAtEachShow();
    void focusStaysWhereItIsWhenContentsAreShown();
    void returnInAFreshDialogAcceptsNothing();
    void tabVisitsTheTitleBarLast();
    void onlyShowingActivatingAndTabbingOrderTheTabs();

    void titleBarMovesTheDialog();
    void newTitleBarMovesTheDialogAtOnce();
    void barWithoutParentFollowsTheDialog();
    void furtherMoveBarsMoveTheDialog();

    void firstShowHasRoomForTheContents();
    void hidingTakesTheHoverFromTheCloseButton();
    void hidingWithoutTitleBarIsFine();
    void closeButtonRejects();
    void escapeRejects();
    void centralWidgetMayDieWhileItIsSet_data();
    void centralWidgetMayDieWhileItIsSet();
    void laterCentralWidgetWins_data();
    void laterCentralWidgetWins();
    void dialogMayDieWhileItIsFilled_data();
    void dialogMayDieWhileItIsFilled();
    void laterTitleBarWins();
    void titleBarClearedWhileItComesIsGone();
    void innerDialogMayDieWhenItFinishes();
    void frameMayDieWhenTheInnerDialogFinishes();
    void partsMayDieInAnyOrder();
    void dialogDiesWithItsParent();
    void messagesOfTheSystemAreLeftToQt();
    void pointerChangesNothingByItself();
    void hoverRulesAndSubclassesArePaintedAnew();
    void barIsLastInTabOrderOnActivation();
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
    // But what forms call by its name.
    QCOMPARE(meta.methodCount(), meta.methodOffset() + 1);
    const QMetaMethod forms = meta.method(meta.methodOffset());
    QCOMPARE(forms.methodSignature(), QByteArray("setCentralWidget(QWidget*)"));
    QCOMPARE(forms.methodType(), QMetaMethod::Method);
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
    const QPointer<KestTitleBar> bar = dialog.titleBar();
    dialog.setTitleBar(bar);
    deleteDeferred();
    QVERIFY(bar); // a new one might be in the same place
    QCOMPARE(dialog.titleBar(), bar.data());
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

void tst_KestDialog::innerDialogIsShownAgain_data()
{
    innerDialogsResultIsTheFrames_data();
}

void tst_KestDialog::innerDialogIsShownAgain()
{
    QFETCH(int, result);
    KestDialog frame;
    auto *inner = new Form;
    frame.setCentralWidget(inner);
    QRect place;
    for (int run = 0; run < 3; ++run) {
        bool visible = false;
        QTimer::singleShot(0, inner, [&] {
            visible = inner->isVisible() && inner->text->isVisible();
            if (run == 0)
                place = inner->geometry();
            inner->done(result);
        });
        QTimer::singleShot(3000, &frame, &QDialog::reject); // if the inner one never comes
        QCOMPARE(frame.exec(), result);
        QVERIFY(visible);
        QVERIFY(!frame.isVisible());
        QVERIFY(!inner->isVisible());
        QCOMPARE(inner->geometry(), place);
    }
    frame.show();
    QVERIFY(inner->isVisible());
}

void tst_KestDialog::innerDialogThatTheHostHidStaysHidden()
{
    KestDialog frame;
    auto *inner = new QDialog;
    frame.setCentralWidget(inner);
    inner->hide();
    frame.show();
    QVERIFY(!inner->isVisible());
}

void tst_KestDialog::refusedResultLeavesTheInnerDialogThere()
{
    class Stubborn : public KestDialog
    {
    public:
        void done(int) override { }
    };
    Stubborn frame;
    auto *inner = new Form;
    frame.setCentralWidget(inner);
    frame.show();
    inner->accept();
    QVERIFY(frame.isVisible());
    QVERIFY(inner->isVisible());
}

void tst_KestDialog::replacedInnerDialogNoLongerFinishesTheFrame()
{
    KestDialog frame;
    const QPointer<QDialog> old(new QDialog);
    frame.setCentralWidget(old);
    auto *inner = new QDialog;
    frame.setCentralWidget(inner);
    frame.show();
    QSignalSpy finished(&frame, &QDialog::finished);
    old->done(7); // it lives until control returns to the event loop
    QVERIFY(frame.isVisible());
    QCOMPARE(finished.count(), 0);
    QVERIFY(old->isHidden());
    inner->done(8);
    QCOMPARE(frame.result(), 8);

    frame.setCentralWidget(nullptr);
    frame.show();
    inner->done(9);
    QVERIFY(frame.isVisible());
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

void tst_KestDialog::firstFocusIsThatOfTheContents_data()
{
    QTest::addColumn<bool>("inner");
    QTest::addColumn<QString>("filled");
    for (const bool inner : { false, true }) {
        for (const char *filled : { "first", "after it was shown", "with a new title bar" })
            QTest::addRow("%s%s", inner ? "QDialog, " : "", filled) << inner << filled;
    }
}

void tst_KestDialog::firstFocusIsThatOfTheContents()
{
    QFETCH(bool, inner);
    QFETCH(QString, filled);
    KestDialog dialog;
    if (filled == QLatin1String("after it was shown"))
        QVERIFY(activate(&dialog));
    QWidget *const central = inner ? new Form : new QWidget;
    QWidget *first = central->findChild<QPlainTextEdit *>();
    if (!inner) {
        first = new QPlainTextEdit(central);
        new QLineEdit(central);
    }
    dialog.setCentralWidget(central);
    if (filled == QLatin1String("with a new title bar"))
        dialog.setTitleBar(new KestTitleBar(&dialog));
    QVERIFY(activate(&dialog));
    QTRY_COMPARE(QApplication::focusWidget(), first);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("text"));
    QCOMPARE(static_cast<QPlainTextEdit *>(first)->toPlainText(), QStringLiteral("text"));
    QCOMPARE(dialog.titleBar()->focusPolicy(), Qt::StrongFocus);
}

void tst_KestDialog::focusIsThatOfTheContentsAtEachShow()
{
    KestDialog dialog;
    auto *form = new Form;
    dialog.setCentralWidget(form);
    QVERIFY(activate(&dialog));
    form->edit->setFocus();
    dialog.reject();
    QVERIFY(activate(&dialog));
    QTRY_COMPARE(QApplication::focusWidget(), form->edit);
    // A click on the close button gives the focus to the bar.
    auto *close = dialog.titleBar()->findChild<QWidget *>(QStringLiteral("closeBtn"));
    QTest::mouseClick(dialog.windowHandle(), Qt::LeftButton, {},
                      close->mapTo(&dialog, close->rect().center()));
    QTRY_VERIFY(!dialog.isVisible());
    QCOMPARE(dialog.focusWidget(), dialog.titleBar());
    QVERIFY(activate(&dialog));
    QTRY_COMPARE(QApplication::focusWidget(), form->text);
}

void tst_KestDialog::focusStaysWhereItIsWhenContentsAreShown()
{
    KestDialog dialog;
    auto *inBar = new QLineEdit(dialog.titleBar());
    auto *contents = new QWidget;
    auto *edit = new QLineEdit(contents);
    dialog.setCentralWidget(contents);
    inBar->show();
    QVERIFY(activate(&dialog));
    inBar->setFocus();
    contents->hide();
    contents->show();
    QCOMPARE(QApplication::focusWidget(), inBar);
    // The bar itself has it for want of anything else, but not when the dialog comes back.
    dialog.titleBar()->setFocus();
    QShowEvent restored;
    QSpontaneKeyEvent::setSpontaneous(&restored);
    qApp->notify(contents, &restored);
    QCOMPARE(QApplication::focusWidget(), dialog.titleBar());
    QShowEvent shown;
    QCoreApplication::sendEvent(contents, &shown);
    QCOMPARE(QApplication::focusWidget(), edit);
}

void tst_KestDialog::returnInAFreshDialogAcceptsNothing()
{
    for (int run = 0; run < 2; ++run) {
        KestDialog dialog;
        auto *form = new Form;
        dialog.setCentralWidget(form);
        QVERIFY(activate(&dialog));
        QTRY_VERIFY(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), run == 0 ? Qt::Key_Return : Qt::Key_Enter);
        QVERIFY(dialog.isVisible());
        QCOMPARE(form->text->toPlainText(), QStringLiteral("\n"));
        // As in any dialog, from a line it does.
        form->edit->setFocus();
        QTest::keyClick(form->edit, Qt::Key_Return);
        QVERIFY(!dialog.isVisible());
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
    }
}

void tst_KestDialog::tabVisitsTheTitleBarLast()
{
    KestDialog dialog;
    auto *form = new Form;
    form->text->setTabChangesFocus(true);
    dialog.setCentralWidget(form);
    QVERIFY(activate(&dialog));
    QTRY_COMPARE(QApplication::focusWidget(), form->text);
    auto *late = new QLineEdit;
    form->layout()->addWidget(late);
    QTRY_VERIFY(late->isVisible());
    const QList<QPushButton *> buttons = form->findChildren<QPushButton *>();
    QCOMPARE(buttons.size(), 2);
    const QList<QWidget *> rest { form->edit, buttons.at(0),     buttons.at(1),
                                  late,       dialog.titleBar(), form->text };
    for (QWidget *next : rest) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), next);
    }
    for (int i = rest.size() - 2; i >= 0; --i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), rest.at(i));
    }
}

void tst_KestDialog::onlyShowingActivatingAndTabbingOrderTheTabs()
{
    const auto isBarFirstAfter = [](QEvent &&event) {
        KestDialog dialog;
        auto *edit = new QLineEdit;
        dialog.setCentralWidget(edit);
        QCoreApplication::sendEvent(&dialog, &event);
        const QWidget *widget = dialog.nextInFocusChain();
        while (widget != edit && widget != dialog.titleBar())
            widget = widget->nextInFocusChain();
        return widget == dialog.titleBar();
    };
    QVERIFY(isBarFirstAfter(QEvent(QEvent::WindowDeactivate)));
    QVERIFY(isBarFirstAfter(QEvent(QEvent::LanguageChange)));
    QVERIFY(isBarFirstAfter(QEvent(QEvent::User)));
    QVERIFY(!isBarFirstAfter(QEvent(QEvent::WindowActivate)));
    QVERIFY(!isBarFirstAfter(QShowEvent()));
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

void tst_KestDialog::barWithoutParentFollowsTheDialog()
{
    // Hidden, or shown by mistake as a window of its own.
    for (const bool shown : { false, true }) {
        KestDialog dialog;
        dialog.resize(400, 300);
        auto *bar = new KestTitleBar;
        if (shown)
            bar->show();
        dialog.setTitleBar(bar);
        QCOMPARE(bar->parentWidget(), &dialog);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QTRY_VERIFY(bar->isVisible());
        QVERIFY(movesItsWindow(bar));
        const auto *button = bar->findChild<QWidget *>(QStringLiteral("maximumSizeBtn"));
        dialog.showMaximized();
        QTRY_VERIFY(button->property("maximumsized").toBool());
        dialog.showNormal();
        QTRY_VERIFY(!button->property("maximumsized").toBool());
    }
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

void tst_KestDialog::firstShowHasRoomForTheContents()
{
    // Nobody gave it a size: it takes what its contents want, the shadow's margin not counted.
    KestDialog dialog;
    auto *form = new Form;
    dialog.setCentralWidget(form);
    for (int show = 0; show < 3; ++show) {
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCoreApplication::processEvents();
        QCOMPARE(form->size(), form->sizeHint());
        dialog.hide();
    }
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
    // Also when the system hides it, and wherever in the bar the button is.
    auto *box = new QWidget(dialog.titleBar());
    button->setParent(box);
    button->setAttribute(Qt::WA_UnderMouse);
    QHideEvent hidden;
    QSpontaneKeyEvent::setSpontaneous(&hidden);
    qApp->notify(&dialog, &hidden);
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

void tst_KestDialog::centralWidgetMayDieWhileItIsSet_data()
{
    QTest::addColumn<QString>("moment");
    for (const char *moment : { "title", "old one hidden" })
        QTest::newRow(moment) << moment;
}

void tst_KestDialog::centralWidgetMayDieWhileItIsSet()
{
    QFETCH(QString, moment);
    KestDialog dialog;
    dialog.show();
    QPointer<QDialog> central(new QDialog);
    central->setWindowTitle(QStringLiteral("Short"));
    const auto die = [&central] { delete central; };
    QScopedPointer<Once> once;
    if (moment == QLatin1String("title"))
        connect(&dialog, &QWidget::windowTitleChanged, this, die);
    else
        once.reset(new Once(dialog.centralWidget(), QEvent::Hide, die));
    dialog.setCentralWidget(central);
    QVERIFY(central.isNull());
    QVERIFY(!dialog.centralWidget());
    auto *label = new QLabel;
    dialog.setCentralWidget(label);
    QCOMPARE(dialog.centralWidget(), label);
}

void tst_KestDialog::laterCentralWidgetWins_data()
{
    QTest::addColumn<QString>("moment");
    for (const char *moment : { "title", "old one hidden", "parent" })
        QTest::newRow(moment) << moment;
}

void tst_KestDialog::laterCentralWidgetWins()
{
    QFETCH(QString, moment);
    KestDialog dialog;
    dialog.show();
    auto *later = new QDialog;
    const QPointer<QDialog> first(new QDialog);
    first->setWindowTitle(QStringLiteral("First"));
    bool done = false;
    const auto callBack = [&] {
        if (!std::exchange(done, true))
            dialog.setCentralWidget(later);
    };
    QScopedPointer<Once> once;
    if (moment == QLatin1String("title"))
        connect(&dialog, &QWidget::windowTitleChanged, this, callBack);
    else if (moment == QLatin1String("old one hidden"))
        once.reset(new Once(dialog.centralWidget(), QEvent::Hide, callBack));
    else
        once.reset(new Once(first, QEvent::ParentChange, callBack));
    dialog.setCentralWidget(first);
    QVERIFY(done);
    QCOMPARE(dialog.centralWidget(), later);
    first->done(3);
    QVERIFY(dialog.isVisible());
    deleteDeferred();
    QVERIFY(first.isNull());
    QCOMPARE(dialog.layout()->count(), 2);
    // The later one is connected once.
    QSignalSpy finished(&dialog, &QDialog::finished);
    later->done(4);
    QCOMPARE(finished.count(), 1);
    QCOMPARE(dialog.result(), 4);
}

void tst_KestDialog::dialogMayDieWhileItIsFilled_data()
{
    QTest::addColumn<QString>("moment");
    for (const char *moment : { "central title", "central hidden", "title bar hidden" })
        QTest::newRow(moment) << moment;
}

void tst_KestDialog::dialogMayDieWhileItIsFilled()
{
    QFETCH(QString, moment);
    // What is hidden lives elsewhere by then: a widget must not die in an event of its own.
    QWidget elsewhere;
    elsewhere.show();
    const QPointer<KestDialog> dialog(new KestDialog);
    const auto die = [&dialog] { delete dialog; };
    auto *central = new QWidget(&elsewhere);
    central->setWindowTitle(QStringLiteral("Short"));
    const bool ofTitleBar = moment == QLatin1String("title bar hidden");
    QWidget *const old = ofTitleBar ? dialog->titleBar() : dialog->centralWidget();
    QScopedPointer<Once> once;
    if (moment == QLatin1String("central title")) {
        connect(dialog, &QWidget::windowTitleChanged, this, die);
    } else {
        old->setParent(&elsewhere);
        old->show();
        once.reset(new Once(old, QEvent::Hide, die));
    }
    if (ofTitleBar)
        dialog->setTitleBar(new KestTitleBar(&elsewhere));
    else
        dialog->setCentralWidget(central);
    QVERIFY(dialog.isNull());
}

void tst_KestDialog::laterTitleBarWins()
{
    KestDialog dialog;
    dialog.resize(400, 300);
    dialog.show();
    auto *later = new KestTitleBar(&dialog);
    const QPointer<KestTitleBar> first(new KestTitleBar(&dialog));
    Once once(dialog.titleBar(), QEvent::Hide, [&] { dialog.setTitleBar(later); });
    dialog.setTitleBar(first);
    QCOMPARE(dialog.titleBar(), later);
    QTRY_VERIFY(later->isVisible());
    QVERIFY(!first || !movesItsWindow(first));
    QVERIFY(movesItsWindow(later));
    deleteDeferred();
    QVERIFY(first.isNull());
    QCOMPARE(dialog.layout()->count(), 2);
    QCOMPARE(dialog.layout()->itemAt(0)->widget(), later);
}

void tst_KestDialog::titleBarClearedWhileItComesIsGone()
{
    KestDialog dialog;
    dialog.resize(400, 300);
    auto *bar = new KestTitleBar;
    Once once(bar, QEvent::ParentChange, [&] { dialog.setTitleBar(nullptr); });
    dialog.setTitleBar(bar);
    QVERIFY(!movesItsWindow(bar));
}

void tst_KestDialog::innerDialogMayDieWhenItFinishes()
{
    KestDialog frame;
    const QPointer<QDialog> inner(new QDialog);
    auto *later = new QDialog;
    frame.setCentralWidget(inner);
    frame.show();
    connect(&frame, &QDialog::finished, this, [&] {
        if (frame.centralWidget() == inner)
            frame.setCentralWidget(later);
    });
    inner->done(5);
    QCOMPARE(frame.result(), 5);
    QVERIFY(inner->isHidden());
    deleteDeferred();
    QVERIFY(inner.isNull());
    frame.show();
    QTRY_VERIFY(later->isVisible());
    later->done(6);
    QCOMPARE(frame.result(), 6);
}

void tst_KestDialog::frameMayDieWhenTheInnerDialogFinishes()
{
    const QPointer<KestDialog> frame(new KestDialog);
    auto *inner = new QDialog;
    frame->setCentralWidget(inner);
    frame->show();
    QWidget elsewhere;
    // The one that finishes must not die of it: a QDialog goes on to use itself.
    connect(frame, &QDialog::finished, this, [&] {
        inner->setParent(&elsewhere);
        delete frame;
    });
    inner->done(5);
    QVERIFY(frame.isNull());
    QCOMPARE(inner->result(), 5);
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

#ifndef Q_OS_WIN // there the frame does without hover events

void tst_KestDialog::pointerChangesNothingByItself()
{
    KestDialog window;
    for (const char *sheet : { "", "KestDialog { background: white; border: 1px solid gray }",
                               "QPushButton:hover { background: red }" }) {
        window.setStyleSheet(QString::fromLatin1(sheet));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(window.testAttribute(Qt::WA_Hover));
        QVERIFY2(paintsForHover(&window, QEvent::HoverEnter) == 0, sheet);
        QVERIFY2(paintsForHover(&window, QEvent::HoverLeave) == 0, sheet);
        // It is taken all the same.
        QHoverEvent event(QEvent::HoverEnter, QPointF(60, 60), QPointF(-1, -1));
        QVERIFY(QCoreApplication::sendEvent(&window, &event));
    }
}

void tst_KestDialog::hoverRulesAndSubclassesArePaintedAnew()
{
    class Subclass : public KestDialog
    {
    };
    Subclass subclass;
    subclass.show();
    QVERIFY(QTest::qWaitForWindowExposed(&subclass));
    QVERIFY(paintsForHover(&subclass, QEvent::HoverEnter) > 0);
    QVERIFY(paintsForHover(&subclass, QEvent::HoverLeave) > 0);

    for (const char *sheet :
         { "KestDialog:hover { background: red }",
           "KestDialog { background: white } KestDialog:hover { background: red }",
           "KestDialog { border-radius: 9px } KestDialog:hover { border-radius: 4px; background: "
           "red }",
           "KestDialog { border: 1px solid gray } KestDialog:hover { border-color: blue }" }) {
        KestDialog window;
        window.setStyleSheet(QString::fromLatin1(sheet));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY2(paintsForHover(&window, QEvent::HoverEnter) > 0, sheet);
        QVERIFY2(paintsForHover(&window, QEvent::HoverLeave) > 0, sheet);
    }

    // A style may be the end of the window that it is asked about.
    class DeadlyStyle : public QProxyStyle
    {
    public:
        void drawPrimitive(PrimitiveElement, const QStyleOption *, QPainter *,
                           const QWidget *) const override
        {
            delete victim;
        }
        QPointer<QWidget> victim;
    } style;
    style.victim = new KestDialog;
    style.victim->setStyle(&style);
    QHoverEvent event(QEvent::HoverEnter, QPointF(60, 60), QPointF(-1, -1));
    QVERIFY(QCoreApplication::sendEvent(style.victim, &event));
    QVERIFY(style.victim.isNull());
}

#else

void tst_KestDialog::pointerChangesNothingByItself()
{
    KestDialog window;
    QVERIFY(!window.testAttribute(Qt::WA_Hover));
}

void tst_KestDialog::hoverRulesAndSubclassesArePaintedAnew()
{
    KestDialog window;
    window.setAttribute(Qt::WA_Hover);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QVERIFY(paintsForHover(&window, QEvent::HoverEnter) > 0);
}

#endif
void tst_KestDialog::barIsLastInTabOrderOnActivation()
{
    KestDialog window;
    window.resize(500, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    auto *edit = new QLineEdit(window.centralWidget());
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window, &activate);
    const QWidget *widget = window.nextInFocusChain();
    while (widget != edit && widget != window.titleBar())
        widget = widget->nextInFocusChain();
    QCOMPARE(widget, edit);
}

void tst_KestDialog::messagesOfTheSystemAreLeftToQt()
{
    class Frame : public KestDialog
    {
    public:
        using KestDialog::nativeEvent;
    };
    Frame frame;
#ifdef Q_OS_WIN
    MSG message = {};
#else
    int message = 0;
#endif
    KestNativeResult result = 17;
    QVERIFY(!frame.nativeEvent(QByteArrayLiteral("message"), &message, &result));
    QCOMPARE(result, KestNativeResult(17));
}

QTEST_MAIN(tst_KestDialog)
#include "tst_kestdialog.moc"
