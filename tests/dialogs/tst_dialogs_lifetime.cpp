// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// Message boxes and the busy overlay with a host that deletes things, or calls back, in the middle
// of what they do.

#include "KestLoadingDialog.h"
#include "KestMessageBox.h"
#include "KestTitleBar.h"
#include "KestWindow.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QClipboard>
#include <QtGui/QMovie>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QVBoxLayout>

#include <functional>
#include <memory>

namespace {

using Box = KestMessageBox;

void deleteWhatWaits()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QPushButton *buttonOf(const Box &box, Box::StandardButton button)
{
    return box.findChild<QDialogButtonBox *>()->button(
        QDialogButtonBox::StandardButton(int(button)));
}

QMovie *newMovie(QObject *parent = nullptr)
{
    return new QMovie(QStringLiteral(":/KestWidgets/Resources/loading.gif"), QByteArray(), parent);
}

bool activate(QWidget *window)
{
    window->show();
    window->activateWindow();
    return QTest::qWaitForWindowActive(window);
}

// Overwrites what has just been freed, so that a look at it ends badly and is noticed.
void overwriteFreedMemory()
{
    QList<QByteArray> blocks;
    for (int size = 8; size < 1024; size += 8) {
        for (int i = 0; i < 16; ++i)
            blocks.append(QByteArray(size, 'Z'));
    }
}

// Does something whenever it is asked for a pixmap.
class CallingStyle : public QProxyStyle
{
public:
    CallingStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("fusion"))) { }

    QPixmap standardPixmap(StandardPixmap pixmap, const QStyleOption *option,
                           const QWidget *widget) const override
    {
        QPixmap result = QProxyStyle::standardPixmap(pixmap, option, widget);
        if (action)
            action();
        return result;
    }

    std::function<void()> action;
};

// Does something whenever the object that it filters gets an event of a type.
class EventSlot : public QObject
{
public:
    EventSlot(QEvent::Type type, const std::function<void()> &action)
        : m_type(type), m_action(action)
    { }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const QPointer<QObject> guard(watched);
        if (event->type() == m_type)
            m_action();
        return !guard; // nobody is there to get it
    }

private:
    QEvent::Type m_type;
    std::function<void()> m_action;
};

// Does something whenever it is invalidated, which a layout inside of it does last when it is
// activated, and whenever it is measured.
class CallingLayout : public QVBoxLayout
{
public:
    using QVBoxLayout::QVBoxLayout;

    void invalidate() override
    {
        QVBoxLayout::invalidate();
        call(onInvalidate);
    }

    QSize minimumSize() const override
    {
        const QSize result = QVBoxLayout::minimumSize();
        call(onMeasure);
        return result;
    }

    std::function<void()> onInvalidate;
    std::function<void()> onMeasure;

private:
    // It may be deleted meanwhile.
    static void call(const std::function<void()> &action)
    {
        const std::function<void()> copy = action;
        if (copy)
            copy();
    }
};

} // namespace

class tst_Dialogs_Lifetime : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void boxWithoutItsContentsIsNeutral_data();
    void boxWithoutItsContentsIsNeutral();
    void boxWithOtherContentsFitsThem();
    void boxWithoutALayoutStaysAsItIs();
    void layoutMayDeleteTheBoxThatIsSized_data();
    void layoutMayDeleteTheBoxThatIsSized();
    void layoutMayDeleteTheBoxThatIsShown();
    void styleMayDeleteTheBox();
    void styleMaySetAnotherIcon();
    void focusSlotMaySetAnotherDefaultButton();
    void clickMayReplaceTheButtons();
    void clickMayDeleteTheBox();
    void letterMayDeleteTheBox();
    void dyingBoxIsWholeForTheSlotsItCalls_data();
    void dyingBoxIsWholeForTheSlotsItCalls();
    void dyingButtonsMayAskForOthers();
    void deletedStandardButtonIsForgotten();
    void boxMayDieInItsLoop();

    void oldMoviesEndMaySetAnother();
    void oldMoviesEndMayDeleteTheOverlay();
    void oldMoviesEndMayDeleteTheNewOne();
    void polishingMayDeleteTheOverlay();
    void raisingMayDeleteTheOverlay();
    void startOfAMovieMayDeleteTheOverlay();
    void startOfAMovieMayDeleteTheOldOne();
    void showingMayHideTheOverlay();
    void endMayDeleteTheOverlay_data();
    void endMayDeleteTheOverlay();
    void endOfTheMovieMayDeleteTheOverlay();
    void dyingOverlayIsWholeForTheSlotsItCalls();
    void windowMayDieBelowTheOverlay();
};

void tst_Dialogs_Lifetime::boxWithoutItsContentsIsNeutral_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : { "replaced", "cleared", "deleted", "labels deleted" })
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_Dialogs_Lifetime::boxWithoutItsContentsIsNeutral()
{
    QFETCH(QString, way);
    Box box(Box::Question, QStringLiteral("Title"), QStringLiteral("Text"), Box::Ok | Box::Cancel);
    box.setDefaultButton(Box::Ok);
    QCOMPARE(box.standardButton(nullptr), Box::Cancel);
    buttonOf(box, Box::Ok)->click();
    if (way == QLatin1String("replaced")) {
        box.setCentralWidget(new QWidget);
    } else if (way == QLatin1String("cleared")) {
        box.setCentralWidget(nullptr);
    } else if (way == QLatin1String("deleted")) {
        delete box.centralWidget();
    } else {
        qDeleteAll(box.centralWidget()->findChildren<QLabel *>());
        delete box.findChild<QDialogButtonBox *>();
    }
    deleteWhatWaits();

    box.setText(QStringLiteral("other"));
    QCOMPARE(box.text(), QString());
    box.setTextFormat(Qt::RichText);
    QCOMPARE(box.textFormat(), Qt::AutoText);
    box.setTextInteractionFlags(Qt::TextBrowserInteraction);
    QCOMPARE(box.textInteractionFlags(), Qt::TextInteractionFlags(Qt::NoTextInteraction));
    box.setIcon(Box::Critical);
    QCOMPARE(box.icon(), Box::Critical);
    box.setIconPixmap(QPixmap(3, 3));
    QCOMPARE(box.icon(), Box::NoIcon);

    box.setStandardButtons(Box::Yes | Box::No);
    QCOMPARE(box.standardButtons(), Box::StandardButtons(Box::NoButton));
    QVERIFY(!box.addButton(QStringLiteral("text"), Box::AcceptRole));
    QVERIFY(!box.addButton(Box::Yes));
    QPushButton own;
    box.addButton(&own, Box::AcceptRole);
    QVERIFY(!own.parent());
    box.removeButton(&own);
    box.setDefaultButton(Box::Ok);
    QCOMPARE(box.defaultButton(), Box::NoButton);
    QVERIFY(!box.clickedButton());
    box.detectEscapeButton();
    QCOMPARE(box.standardButton(nullptr), Box::NoButton);
    QCOMPARE(box.standardButton(&own), Box::NoButton);
    for (const QPushButton *button : box.findChildren<QPushButton *>())
        QVERIFY(button->text() != QLatin1String("text"));

    box.updateSize();
    QVERIFY(box.layoutMinimumWidth() >= 0);
    QVERIFY(activate(&box));
    box.updateSize();
    QTest::keyClick(&box, Qt::Key_Return);
    QTest::keyClick(&box, Qt::Key_Y);
    QVERIFY(box.isVisible());
    const QString line = QString(27, QLatin1Char('-')) + QLatin1Char('\n');
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(),
             line + QStringLiteral("Title\n") + line + QLatin1Char('\n') + line + QLatin1Char('\n')
                 + line);
    QTest::keyClick(&box, Qt::Key_Escape);
    QVERIFY(!box.isVisible());
    QCOMPARE(box.result(), int(QDialog::Rejected));
}

void tst_Dialogs_Lifetime::boxWithOtherContentsFitsThem()
{
    Box box(Box::Question, QStringLiteral("Title"), QStringLiteral("Text"), Box::Ok);
    auto *contents = new QWidget;
    auto *layout = new QVBoxLayout(contents);
    auto *inner = new QWidget;
    inner->setFixedSize(432, 123);
    layout->addWidget(inner);
    box.setCentralWidget(contents);
    deleteWhatWaits();
    box.show();
    const QMargins margins = layout->contentsMargins() + box.contentsMargins();
    QCOMPARE(box.width(), layout->minimumSize().width() + margins.left() + margins.right());
    QVERIFY(contents->rect().contains(inner->geometry()));
}

void tst_Dialogs_Lifetime::boxWithoutALayoutStaysAsItIs()
{
    Box box(Box::Question, QStringLiteral("Title"), QStringLiteral("Text"), Box::Ok);
    box.show();
    const QSize size = box.size();
    const QList<QLabel *> labels = box.centralWidget()->findChildren<QLabel *>();
    QCOMPARE(labels.size(), 2);
    for (QLabel *label : labels)
        label->setWordWrap(true);
    delete box.centralWidget()->layout();
    box.updateSize();
    QCOMPARE(box.size(), size);
    for (const QLabel *label : labels)
        QVERIFY(label->wordWrap());
}

void tst_Dialogs_Lifetime::layoutMayDeleteTheBoxThatIsSized_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("turn"); // of the contents' layout being activated
    QTest::addColumn<bool>("whole"); // the box, or only its contents
    const QString words = QStringLiteral("A sentence of some words. ").repeated(40);
    for (const bool whole : { false, true }) {
        const char *const victim = whole ? "box" : "contents";
        QTest::addRow("%s, first look", victim) << QStringLiteral("Short.") << 1 << whole;
        QTest::addRow("%s, wrapped text", victim) << words << 2 << whole;
        QTest::addRow("%s, last time", victim) << QStringLiteral("Short.") << 2 << whole;
        QTest::addRow("%s, last time of a wrapped text", victim) << words << 3 << whole;
    }
}

void tst_Dialogs_Lifetime::layoutMayDeleteTheBoxThatIsSized()
{
    QFETCH(QString, text);
    QFETCH(int, turn);
    QFETCH(bool, whole);
    // The contents in a frame of the host's, and in a layout that is never done.
    const QPointer<Box> box(new Box);
    box->setText(text);
    const QPointer<QWidget> contents(box->centralWidget());
    const QList<QLabel *> labels = contents->findChildren<QLabel *>();
    delete contents->layout();
    auto *inside = new CallingLayout(contents);
    for (QLabel *label : labels)
        inside->addWidget(label);
    auto *frame = new QWidget(box);
    auto *around = new CallingLayout(frame);
    around->addWidget(contents);
    box->layout()->addWidget(frame);
    box->show();
    contents->show();
    const QSize size(1234, 567);
    box->setFixedSize(size);
    int activated = 0;
    inside->onMeasure = [&] { inside->invalidate(); };
    around->onInvalidate = [&] {
        if (++activated < turn)
            return;
        around->onInvalidate = nullptr;
        if (whole)
            delete box;
        else
            delete contents;
        overwriteFreedMemory();
    };
    box->updateSize();
    QCOMPARE(activated, turn);
    QVERIFY(contents.isNull());
    QCOMPARE(box.isNull(), whole);
    if (box)
        QCOMPARE(box->size(), size);
    delete box;
}

void tst_Dialogs_Lifetime::layoutMayDeleteTheBoxThatIsShown()
{
    const QPointer<Box> box(new Box);
    QWidget *const contents = box->centralWidget();
    auto *frame = new QWidget(box);
    auto *around = new CallingLayout(frame);
    around->addWidget(contents);
    box->layout()->addWidget(frame);
    box->show();
    contents->show();
    around->onInvalidate = [&] {
        delete box;
        overwriteFreedMemory();
    };
    // Sent, since Qt itself does not stand that while it shows a widget.
    QShowEvent event;
    QCoreApplication::sendEvent(box, &event);
    QVERIFY(box.isNull());
}

void tst_Dialogs_Lifetime::styleMayDeleteTheBox()
{
    CallingStyle style;
    QPointer<Box> box(new Box);
    box->setStyle(&style);
    style.action = [&] { delete box; };
    box->setIcon(Box::Warning);
    QVERIFY(box.isNull());
}

void tst_Dialogs_Lifetime::styleMaySetAnotherIcon()
{
    CallingStyle style;
    Box box;
    box.setStyle(&style);
    const QImage critical =
        style.standardPixmap(QStyle::SP_MessageBoxCritical, nullptr, nullptr).toImage();
    style.action = [&] {
        style.action = nullptr;
        box.setIcon(Box::Critical);
    };
    box.setIcon(Box::Warning);
    QCOMPARE(box.icon(), Box::Critical);
    QCOMPARE(
        box.centralWidget()->findChildren<QLabel *>().first()->pixmap(Qt::ReturnByValue).toImage(),
        critical);
}

void tst_Dialogs_Lifetime::focusSlotMaySetAnotherDefaultButton()
{
    Box box;
    box.setStandardButtons(Box::Yes | Box::No | Box::Cancel);
    box.setDefaultButton(Box::Cancel);
    QVERIFY(activate(&box));
    QPushButton *const yes = buttonOf(box, Box::Yes);
    const QMetaObject::Connection connection =
        connect(qApp, &QApplication::focusChanged, &box, [&](QWidget *, QWidget *now) {
            if (now == yes)
                box.setDefaultButton(Box::No);
        });
    box.setDefaultButton(Box::Yes);
    disconnect(connection);
    QCOMPARE(box.defaultButton(), Box::No);
    QVERIFY(buttonOf(box, Box::No)->hasFocus());
}

void tst_Dialogs_Lifetime::clickMayReplaceTheButtons()
{
    Box box;
    box.setStandardButtons(Box::Apply | Box::Cancel);
    QVERIFY(activate(&box));
    const QPointer<QPushButton> apply(buttonOf(box, Box::Apply));
    connect(apply, &QPushButton::clicked, &box,
            [&] { box.setStandardButtons(Box::Retry | Box::Abort); });
    QTest::mouseClick(apply, Qt::LeftButton);
    QVERIFY(apply.isNull());
    QCOMPARE(box.standardButtons(), Box::Retry | Box::Abort);
    QVERIFY(box.isVisible());
    QTest::mouseClick(buttonOf(box, Box::Retry), Qt::LeftButton);
    QVERIFY(!box.isVisible());
    QCOMPARE(box.standardButton(box.clickedButton()), Box::Retry);
}

void tst_Dialogs_Lifetime::clickMayDeleteTheBox()
{
    const QPointer<Box> box(new Box);
    box->setStandardButtons(Box::Apply | Box::Ok);
    QVERIFY(activate(box));
    QPushButton *const ok = buttonOf(*box, Box::Ok);
    connect(box, &QDialog::finished, qApp, [&] { delete box; });
    QTest::mouseClick(ok, Qt::LeftButton);
    QVERIFY(box.isNull());
}

void tst_Dialogs_Lifetime::letterMayDeleteTheBox()
{
    const QPointer<Box> box(new Box);
    QPushButton *const go = box->addButton(QStringLiteral("&Go"), Box::ActionRole);
    QVERIFY(activate(box));
    connect(go, &QPushButton::clicked, qApp, [&] { delete box; });
    QTest::keyClick(box.data(), Qt::Key_G);
    QTRY_VERIFY(box.isNull());
}

void tst_Dialogs_Lifetime::dyingBoxIsWholeForTheSlotsItCalls_data()
{
    QTest::addColumn<bool>("focusOnTitleBar");
    QTest::newRow("focus on a button") << false;
    QTest::newRow("focus on the title bar") << true;
}

void tst_Dialogs_Lifetime::dyingBoxIsWholeForTheSlotsItCalls()
{
    QFETCH(bool, focusOnTitleBar);
    // A host's pointer to a widget is still there while the widget's children die.
    const QPointer<Box> box(new Box(Box::Question, QStringLiteral("Title"), QStringLiteral("Text"),
                                    Box::Ok | Box::Apply));
    QPushButton *const own = box->addButton(QStringLiteral("Own"), Box::ActionRole);
    QVERIFY(activate(box));
    if (focusOnTitleBar)
        box->titleBar()->setFocus();
    int calls = 0;
    bool busy = false;
    const auto use = [&] {
        if (!box || busy)
            return;
        busy = true;
        ++calls;
        box->text();
        box->standardButton(nullptr);
        if (!focusOnTitleBar)
            box->setDefaultButton(Box::Apply);
        for (QAbstractButton *button : box->findChildren<QAbstractButton *>())
            button->click();
        box->clickedButton();
        busy = false;
    };
    EventSlot hidden(QEvent::Hide, use);
    box->installEventFilter(&hidden);
    connect(own, &QObject::destroyed, this, use);
    const QMetaObject::Connection connection =
        connect(qApp, &QApplication::focusChanged, this, use);
    delete box;
    disconnect(connection);
    QVERIFY(box.isNull());
    QVERIFY(calls >= 3);
}

void tst_Dialogs_Lifetime::dyingButtonsMayAskForOthers()
{
    Box box;
    box.setStandardButtons(Box::Ok | Box::Apply | Box::Cancel);
    QPushButton *const own = box.addButton(QStringLiteral("Own"), Box::HelpRole);
    int calls = 0;
    const auto use = [&] {
        ++calls;
        box.setDefaultButton(Box::Apply);
        box.standardButton(nullptr);
        box.setDefaultButton(Box::Cancel);
        box.standardButtons();
    };
    connect(own, &QObject::destroyed, this, use);
    connect(buttonOf(box, Box::Ok), &QObject::destroyed, this, use);
    box.setCentralWidget(nullptr);
    deleteWhatWaits();
    QCOMPARE(calls, 2);
    QCOMPARE(box.defaultButton(), Box::NoButton);
}

void tst_Dialogs_Lifetime::deletedStandardButtonIsForgotten()
{
    Box box;
    box.setStandardButtons(Box::Ok | Box::Cancel | Box::Apply);
    delete buttonOf(box, Box::Cancel);
    box.setDefaultButton(Box::Cancel);
    QCOMPARE(box.defaultButton(), Box::NoButton);
    QCOMPARE(box.standardButton(nullptr), Box::NoButton);
    box.show();
    QTest::keyClick(&box, Qt::Key_Escape);
    QVERIFY(!box.isVisible());
}

void tst_Dialogs_Lifetime::boxMayDieInItsLoop()
{
    const QPointer<Box> box(new Box);
    box->setStandardButtons(Box::Ok);
    QTimer::singleShot(0, qApp, [&] { delete box; });
    QCOMPARE(box->exec(), int(QDialog::Rejected));
    QVERIFY(box.isNull());

    auto *parent = new QWidget;
    parent->show();
    QTimer::singleShot(0, qApp, [&] { delete parent; });
    QCOMPARE(Box::question(parent, QStringLiteral("Title"), QStringLiteral("Text")), Box::NoButton);
}

void tst_Dialogs_Lifetime::oldMoviesEndMaySetAnother()
{
    QWidget window;
    KestLoadingDialog overlay(&window);
    const QPointer<QMovie> second(newMovie());
    const QPointer<QMovie> third(newMovie());
    connect(overlay.movie(), &QObject::destroyed, &overlay, [&] { overlay.setMovie(third); });
    overlay.setMovie(second);
    QCOMPARE(overlay.movie(), third);
    QVERIFY(second.isNull());
}

void tst_Dialogs_Lifetime::oldMoviesEndMayDeleteTheOverlay()
{
    QWidget window;
    window.show();
    const QPointer<KestLoadingDialog> overlay(new KestLoadingDialog(&window));
    overlay->show();
    connect(overlay->movie(), &QObject::destroyed, this, [&] { delete overlay; });
    overlay->setMovie(newMovie());
    QVERIFY(overlay.isNull());
}

void tst_Dialogs_Lifetime::oldMoviesEndMayDeleteTheNewOne()
{
    QWidget window;
    window.show();
    KestLoadingDialog overlay(&window);
    overlay.show();
    QMovie *const next = newMovie();
    connect(overlay.movie(), &QObject::destroyed, this, [&] { delete next; });
    overlay.setMovie(next);
    QVERIFY(!overlay.movie());
}

void tst_Dialogs_Lifetime::polishingMayDeleteTheOverlay()
{
    QWidget window;
    window.show();
    const QPointer<KestLoadingDialog> overlay(new KestLoadingDialog(&window));
    // What a parent hears of last.
    EventSlot polished(QEvent::ChildPolished, [&] {
        delete overlay;
        overwriteFreedMemory();
    });
    window.installEventFilter(&polished);
    QCOMPARE(overlay->exec(), KestLoadingDialog::Canceled);
    QVERIFY(overlay.isNull());
}

void tst_Dialogs_Lifetime::raisingMayDeleteTheOverlay()
{
    QWidget window;
    QVERIFY(activate(&window));
    const QPointer<KestLoadingDialog> overlay(new KestLoadingDialog(&window));
    overlay->show();
    QWidget above(&window);
    above.show();
    EventSlot raised(QEvent::ZOrderChange, [&] {
        delete overlay;
        overwriteFreedMemory();
    });
    overlay->installEventFilter(&raised);
    // Sent, since Qt itself does not stand that while it shows a widget.
    QShowEvent event;
    QCoreApplication::sendEvent(overlay, &event);
    QVERIFY(overlay.isNull());
}

void tst_Dialogs_Lifetime::startOfAMovieMayDeleteTheOverlay()
{
    QWidget window;
    window.show();
    const QPointer<KestLoadingDialog> overlay(new KestLoadingDialog(&window));
    overlay->show();
    const QPointer<QMovie> old(overlay->movie());
    auto *movie = newMovie(&window);
    connect(movie, &QMovie::started, this, [&] { delete overlay; });
    overlay->setMovie(movie);
    QVERIFY(overlay.isNull());
    QVERIFY(old.isNull());
}

void tst_Dialogs_Lifetime::startOfAMovieMayDeleteTheOldOne()
{
    QWidget window;
    window.show();
    KestLoadingDialog overlay(&window);
    overlay.show();
    const QPointer<QMovie> old(overlay.movie());
    auto *movie = newMovie(&window);
    connect(movie, &QMovie::started, this, [&] { delete old; });
    overlay.setMovie(movie);
    QCOMPARE(overlay.movie(), movie);
    QVERIFY(old.isNull());
}

void tst_Dialogs_Lifetime::showingMayHideTheOverlay()
{
    QWidget window;
    QVERIFY(activate(&window));
    KestLoadingDialog overlay(&window);
    QTimer::singleShot(5000, &overlay, &KestLoadingDialog::done);
    const QMetaObject::Connection connection =
        connect(qApp, &QApplication::focusChanged, &overlay, [&](QWidget *, QWidget *now) {
            if (now == &overlay)
                overlay.hide();
        });
    QCOMPARE(overlay.exec(), KestLoadingDialog::Canceled);
    disconnect(connection);
    QVERIFY(!overlay.isVisible());
}

void tst_Dialogs_Lifetime::endMayDeleteTheOverlay_data()
{
    QTest::addColumn<bool>("withWindow");
    QTest::newRow("the overlay") << false;
    QTest::newRow("its window") << true;
}

void tst_Dialogs_Lifetime::endMayDeleteTheOverlay()
{
    QFETCH(bool, withWindow);
    const QPointer<QWidget> window(new QWidget);
    auto *edit = new QLineEdit(window);
    QVERIFY(activate(window));
    edit->setFocus();
    const QPointer<KestLoadingDialog> overlay(new KestLoadingDialog(window));
    QTimer::singleShot(0, overlay, &KestLoadingDialog::done);
    // The focus goes back to the input.
    const QMetaObject::Connection connection =
        connect(qApp, &QApplication::focusChanged, this, [&](QWidget *, QWidget *now) {
            if (now == edit && !withWindow)
                delete overlay;
            else if (now == edit)
                window->deleteLater();
        });
    const KestLoadingDialog::Result result = overlay->exec();
    disconnect(connection);
    deleteWhatWaits();
    QVERIFY(overlay.isNull());
    QCOMPARE(result, withWindow ? KestLoadingDialog::Done : KestLoadingDialog::Canceled);
    QCOMPARE(window.isNull(), withWindow);
    delete window;
}

void tst_Dialogs_Lifetime::endOfTheMovieMayDeleteTheOverlay()
{
    QWidget window;
    window.show();
    const QPointer<KestLoadingDialog> overlay(new KestLoadingDialog(&window));
    auto *movie = newMovie(&window);
    overlay->setMovie(movie);
    connect(movie, &QMovie::stateChanged, this, [&](QMovie::MovieState state) {
        if (state == QMovie::NotRunning)
            delete overlay;
    });
    QTimer::singleShot(0, overlay, &KestLoadingDialog::done);
    QCOMPARE(overlay->exec(), KestLoadingDialog::Canceled);
    QVERIFY(overlay.isNull());
}

void tst_Dialogs_Lifetime::dyingOverlayIsWholeForTheSlotsItCalls()
{
    QWidget window;
    QVERIFY(activate(&window));
    const QPointer<KestLoadingDialog> overlay(new KestLoadingDialog(&window));
    overlay->show();
    QVERIFY(overlay->hasFocus());
    int calls = 0;
    const auto use = [&] {
        if (!overlay)
            return;
        ++calls;
        overlay->setCancelEnable(true);
        overlay->movie();
        overlay->done();
    };
    const QMetaObject::Connection connection =
        connect(qApp, &QApplication::focusChanged, this, use);
    connect(overlay->movie(), &QMovie::stateChanged, this, use);
    delete overlay;
    disconnect(connection);
    QVERIFY(overlay.isNull());
    QVERIFY(calls >= 2);
}

void tst_Dialogs_Lifetime::windowMayDieBelowTheOverlay()
{
    for (const bool running : { false, true }) {
        const QPointer<KestWindow> window(new KestWindow);
        auto *edit = new QLineEdit(window->centralWidget());
        QVERIFY(activate(window));
        edit->setFocus();
        auto *overlay = new KestLoadingDialog(window);
        QList<QWidget *> focused;
        overlay->show();
        QVERIFY(overlay->hasFocus());
        // A window that dies is none to put the focus into.
        const QMetaObject::Connection connection =
            connect(qApp, &QApplication::focusChanged, this,
                    [&](QWidget *, QWidget *now) { focused.append(now); });
        if (running) {
            overlay->hide();
            focused.clear();
            QTimer::singleShot(0, qApp, [&] {
                focused.clear();
                delete window;
            });
            QCOMPARE(overlay->exec(), KestLoadingDialog::Canceled);
        } else {
            delete window;
        }
        disconnect(connection);
        QVERIFY(window.isNull());
        QVERIFY(!focused.contains(edit));
    }
}

QTEST_MAIN(tst_Dialogs_Lifetime)
#include "tst_dialogs_lifetime.moc"
