// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestMessageBox.h"

#include "AnotherScreen.h"
#include "KestTitleBar.h"

#include <QtCore/QMetaEnum>
#include <QtCore/QMetaProperty>
#include <QtCore/QPointer>
#include <QtCore/QScopeGuard>
#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtGui/QClipboard>
#include <QtGui/QCursor>
#include <QtGui/QScreen>
#include <QtGui/private/qguiapplication_p.h>
#include <QtGui/qpa/qplatformaccessibility.h>
#include <QtGui/qpa/qplatformintegration.h>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProxyStyle>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QVBoxLayout>

#include <functional>

Q_DECLARE_METATYPE(KestMessageBox::StandardButtons)

namespace {

using Box = KestMessageBox;

QLabel *iconLabel(const Box &box)
{
    return qobject_cast<QLabel *>(
        box.centralWidget()->layout()->itemAt(0)->layout()->itemAt(0)->widget());
}

QLabel *textLabel(const Box &box)
{
    return qobject_cast<QLabel *>(
        box.centralWidget()->layout()->itemAt(0)->layout()->itemAt(1)->widget());
}

QDialogButtonBox *buttonBox(const Box &box)
{
    return qobject_cast<QDialogButtonBox *>(box.centralWidget()->layout()->itemAt(1)->widget());
}

QPushButton *buttonOf(const Box &box, Box::StandardButton button)
{
    return buttonBox(box)->button(QDialogButtonBox::StandardButton(int(button)));
}

// The box that a static function has opened, once its loop runs.
void onOpenBox(const std::function<void(Box *)> &action)
{
    QTimer::singleShot(0, qApp, [action] {
        auto *box = qobject_cast<Box *>(QApplication::activeModalWidget());
        if (!box)
            qFatal("No message box is open");
        action(box);
    });
}

// The width of what is around the contents, once more than the layout itself counts it.
int widthAround(const Box &box)
{
    const QMargins margins =
        box.contentsMargins() + box.centralWidget()->layout()->contentsMargins();
    return margins.left() + margins.right();
}

// Has the screen another width as long as it lives, not all of which is there for windows.
class ScreenWidth
{
public:
    explicit ScreenWidth(int width)
    {
        set(QRect(0, 0, width, 900), QRect(70, 50, width - 70, 800));
    }
    ~ScreenWidth() { set(m_before, m_before); }

private:
    Q_DISABLE_COPY(ScreenWidth)

    static void set(const QRect &geometry, const QRect &available)
    {
        QWindowSystemInterface::handleScreenGeometryChange(QGuiApplication::primaryScreen(),
                                                           geometry, available);
        QCoreApplication::processEvents();
    }

    const QRect m_before = QGuiApplication::primaryScreen()->geometry();
};

// Has a pixmap of its own for all icons, and writes down which it was asked for.
class RecordingStyle : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    QPixmap standardPixmap(StandardPixmap pixmap, const QStyleOption *option,
                           const QWidget *widget) const override
    {
        asked.append(pixmap);
        toldMore = toldMore || option || widget;
        QPixmap result(3, 5);
        result.fill(Qt::magenta);
        return result;
    }

    mutable QList<StandardPixmap> asked;
    mutable bool toldMore = false;
};

const Box::StandardButton AllButtons[] = {
    Box::Ok,     Box::Save,    Box::SaveAll, Box::Open,  Box::Yes,    Box::YesToAll,
    Box::No,     Box::NoToAll, Box::Abort,   Box::Retry, Box::Ignore, Box::Close,
    Box::Cancel, Box::Discard, Box::Help,    Box::Apply, Box::Reset,  Box::RestoreDefaults
};

} // namespace

class tst_KestMessageBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void iconValues();
    void buttonValues_data();
    void buttonValues();
    void roleValues();
    void properties();
    void newBoxIsEmpty();
    void secondConstructorFillsTheBox();
    void secondConstructorsDefaults();
    void layoutHoldsIconTextAndButtons();
    void messageHasNoMarginsOfItsOwnAnywhere();

    void captionsHaveRoomUnderAStyleSheet();
    void textSettingsAreTheLabels();
    void iconsAreTheStyles_data();
    void iconsAreTheStyles();
    void outermostStyleIsAskedForTheIcon();
    void sameIconAgainIsThatOfTheStyleByNow();
    void noIconKeepsThePixmap();
    void pixmapTakesTheIconsPlace();

    void standardButtonsAreTheBoxs();
    void replacedButtonsAreForgotten();
    void keptButtonsAreRemembered();
    void removedEscapeButtonIsForgotten();
    void buttonsAreAddedOnce();
    void buttonsWithTextAreCreated();
    void standardButtonsAreAdded();
    void removedButtonsLiveOn();
    void removedButtonThatDiesIsForgotten();

    void defaultButtonHasTheFocus();
    void unknownDefaultButtonIsIgnored();
    void customDefaultIsNoStandardButton();

    void standardButtonsClose_data();
    void standardButtonsClose();
    void rolesClose_data();
    void rolesClose();
    void clickIsRecordedBeforeTheBoxCloses();
    void closingButtonsCallWhatAHostOverrides();
    void clickIsKeptForTheNextShow();

    void escapeButton_data();
    void escapeButton();
    void escapeButtonByRole();
    void escapeButtonIsFoundOnce();

    void staticFunctions_data();
    void staticFunctions();
    void staticFunctionsReturnTheClick_data();
    void staticFunctionsReturnTheClick();
    void staticFunctionsReturnTheEscapeButton_data();
    void staticFunctionsReturnTheEscapeButton();
    void discardLeavesTheBoxOpen();
    void discardClosesWhereTheHostSaysSo();
    void defaultArgumentsAreQMessageBoxs();
    void parentMayDieWhileTheBoxIsOpen();
    void boxesMayBeNested();

    void sizeIsFixedByTheRule_data();
    void sizeIsFixedByTheRule();
    void titleWidensTheBoxUpToTheLimit_data();
    void titleWidensTheBoxUpToTheLimit();
    void contentsAreWrappedBeyondTheLimit_data();
    void contentsAreWrappedBeyondTheLimit();
    void limitsAreThoseOfTheScreenBelowThePointer();
    void shorterTextIsNotWrappedAnyMore();
    void screenIsWrittenOut();
    void hiddenBoxIsNotResized();
    void onlyStandardButtonsResizeTheOpenBox_data();
    void onlyStandardButtonsResizeTheOpenBox();
    void tallerTitleBarMakesTheBoxTaller();
    void measuringLaysTheContentsOut();
    void sizingLaysOutWhatChangedMeanwhile();
    void boxIsCentredAnewOnEveryShow();
    void restoredBoxIsSizedAnew();

    void enterPressesTheDefaultButton();
    void firstFocusIsOnTheButtonThatEnterPresses_data();
    void firstFocusIsOnTheButtonThatEnterPresses();
    void secondShowPutsTheFocusOnAButtonAgain();
    void hiddenDefaultButtonDoesNotTakeTheFocus();
    void inputHiddenMeanwhileLosesTheFocus();
    void inputDisabledMeanwhileLosesTheFocus();
    void focusOutsideOfTheMessageMovesIntoIt();
    void focusThatTheHostSetStays();
    void letterPressesTheButtonWithThatMnemonic();
    void letterPressesOnlyButtonsThatCanBePressed();
    void letterTypedIntoAnInputPressesNothing();
    void copyTakesTitleTextAndButtons();
    void copiedTextIsPlain_data();
    void copiedTextIsPlain();
    void copyOfASelectionTakesOnlyThat();
    void screenReaderFindsTextAndButtons();
    void screenReaderIsAlertedOnShow();
    void titleIsMeasuredInTheFontOfTitles();
    void lettersWithAltAreShortcuts();
    void defaultButtonIsGivenTheFocusForNoKey();
    void eachMarginOfTheContentsCounts();
};

void tst_KestMessageBox::iconValues()
{
    const QMetaEnum icons = QMetaEnum::fromType<Box::Icon>();
    QCOMPARE(icons.keyCount(), 5);
    const char *names[] = { "NoIcon", "Information", "Warning", "Critical", "Question" };
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(icons.keyToValue(names[i]), i);
        const QMetaEnum theirs = QMetaEnum::fromType<QMessageBox::Icon>();
        QCOMPARE(icons.keyToValue(names[i]), theirs.keyToValue(names[i]));
    }
}

void tst_KestMessageBox::buttonValues_data()
{
    QTest::addColumn<int>("value");
    const int values[] = { 0x00000000, 0x00000400, 0x00000800, 0x00001000, 0x00002000,
                           0x00004000, 0x00008000, 0x00010000, 0x00020000, 0x00040000,
                           0x00080000, 0x00100000, 0x00200000, 0x00400000, 0x00800000,
                           0x01000000, 0x02000000, 0x04000000, 0x08000000 };
    const char *names[] = { "NoButton", "Ok",       "Save",  "SaveAll",        "Open",
                            "Yes",      "YesToAll", "No",    "NoToAll",        "Abort",
                            "Retry",    "Ignore",   "Close", "Cancel",         "Discard",
                            "Help",     "Apply",    "Reset", "RestoreDefaults" };
    for (int i = 0; i < 19; ++i)
        QTest::newRow(names[i]) << values[i];
}

void tst_KestMessageBox::buttonValues()
{
    QFETCH(int, value);
    const QMetaEnum buttons = QMetaEnum::fromType<Box::StandardButtons>();
    QVERIFY(buttons.isFlag());
    QCOMPARE(buttons.keyToValue(QTest::currentDataTag()), value);
    const QMetaEnum theirs = QMetaEnum::fromType<QDialogButtonBox::StandardButtons>();
    QCOMPARE(theirs.keyToValue(QTest::currentDataTag()), value);
}

void tst_KestMessageBox::roleValues()
{
    QCOMPARE(int(Box::InvalidRole), -1);
    QCOMPARE(int(Box::AcceptRole), 0);
    QCOMPARE(int(Box::RejectRole), 1);
    QCOMPARE(int(Box::DestructiveRole), 2);
    QCOMPARE(int(Box::ActionRole), 3);
    QCOMPARE(int(Box::HelpRole), 4);
    QCOMPARE(int(Box::YesRole), 5);
    QCOMPARE(int(Box::NoRole), 6);
    QCOMPARE(int(Box::ResetRole), 7);
    QCOMPARE(int(Box::ApplyRole), 8);
    QCOMPARE(Box::staticMetaObject.indexOfEnumerator("ButtonRole"), -1); // no meta-enum
}

void tst_KestMessageBox::properties()
{
    Box box;
    QVERIFY(box.setProperty("text", QStringLiteral("t")));
    QCOMPARE(box.property("text").toString(), QStringLiteral("t"));
    QVERIFY(box.setProperty("icon", QVariant::fromValue(Box::Warning)));
    QCOMPARE(box.icon(), Box::Warning);
    QVERIFY(box.setProperty("textFormat", QVariant::fromValue(Qt::PlainText)));
    QCOMPARE(box.textFormat(), Qt::PlainText);
    QVERIFY(box.setProperty("standardButtons", int(Box::Ok | Box::Cancel)));
    QCOMPARE(box.standardButtons(), Box::Ok | Box::Cancel);
    QVERIFY(box.setProperty("textInteractionFlags", int(Qt::TextSelectableByMouse)));
    QCOMPARE(box.textInteractionFlags(), Qt::TextInteractionFlags(Qt::TextSelectableByMouse));
    const QMetaObject &meta = Box::staticMetaObject;
    const QMetaProperty pixmap = meta.property(meta.indexOfProperty("iconPixmap"));
    QVERIFY(pixmap.isWritable());
    QVERIFY(!pixmap.isReadable());
    QPixmap image(7, 9);
    QVERIFY(box.setProperty("iconPixmap", image));
    QCOMPARE(iconLabel(box)->pixmap(Qt::ReturnByValue).size(), QSize(7, 9));
    QCOMPARE(meta.methodCount(), meta.methodOffset());
}

void tst_KestMessageBox::newBoxIsEmpty()
{
    Box box;
    QCOMPARE(box.text(), QString());
    QCOMPARE(box.icon(), Box::NoIcon);
    QCOMPARE(box.standardButtons(), Box::StandardButtons(Box::NoButton));
    QCOMPARE(box.textFormat(), QLabel().textFormat());
    QCOMPARE(box.textInteractionFlags(), QLabel().textInteractionFlags());
    QVERIFY(!box.clickedButton());
    QCOMPARE(box.defaultButton(), Box::NoButton);
    QCOMPARE(box.standardButton(nullptr), Box::NoButton);
    QVERIFY(iconLabel(box)->pixmap(Qt::ReturnByValue).isNull());
}

void tst_KestMessageBox::secondConstructorFillsTheBox()
{
    QWidget parent;
    Box box(Box::Question, QStringLiteral("title"), QStringLiteral("text"), Box::Yes | Box::No,
            &parent, Qt::Dialog | Qt::WindowStaysOnTopHint);
    QCOMPARE(box.icon(), Box::Question);
    QCOMPARE(box.windowTitle(), QStringLiteral("title"));
    QCOMPARE(box.text(), QStringLiteral("text"));
    QCOMPARE(box.standardButtons(), Box::Yes | Box::No);
    QCOMPARE(box.parentWidget(), &parent);
    QCOMPARE(box.windowFlags(),
             Qt::Dialog | Qt::WindowStaysOnTopHint | Qt::FramelessWindowHint
                 | Qt::WindowCloseButtonHint);
    QVERIFY(!iconLabel(box)->pixmap(Qt::ReturnByValue).isNull());
}

void tst_KestMessageBox::secondConstructorsDefaults()
{
    const Box box(Box::Warning, QStringLiteral("title"), QStringLiteral("text"));
    QCOMPARE(box.icon(), Box::Warning);
    QCOMPARE(box.windowTitle(), QStringLiteral("title"));
    QCOMPARE(box.text(), QStringLiteral("text"));
    QCOMPARE(box.standardButtons(), Box::StandardButtons(Box::NoButton));
    QVERIFY(buttonBox(box)->buttons().isEmpty());
    QVERIFY(!box.parentWidget());
    QCOMPARE(box.windowFlags(),
             Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint | Qt::FramelessWindowHint
                 | Qt::WindowCloseButtonHint);
}

void tst_KestMessageBox::layoutHoldsIconTextAndButtons()
{
    Box box;
    auto *layout = qobject_cast<QVBoxLayout *>(box.centralWidget()->layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 2);
    auto *message = qobject_cast<QHBoxLayout *>(layout->itemAt(0)->layout());
    QVERIFY(message);
    QCOMPARE(message->contentsMargins(), QMargins());
    QCOMPARE(message->spacing(), 20);
    QCOMPARE(message->stretch(0), 0);
    QCOMPARE(message->stretch(1), 1);
    QCOMPARE(layout->stretch(1), 0);
    QVERIFY(iconLabel(box) && textLabel(box) && buttonBox(box));
    box.setText(QStringLiteral("text"));
    QCOMPARE(textLabel(box)->text(), QStringLiteral("text"));
}

void tst_KestMessageBox::messageHasNoMarginsOfItsOwnAnywhere()
{
    Box box;
    // On a widget of the host's.
    QLayout *const message = box.centralWidget()->layout()->takeAt(0)->layout();
    message->setParent(nullptr);
    QWidget host;
    host.setLayout(message);
    QCOMPARE(message->parentWidget(), &host);
    QCOMPARE(message->contentsMargins(), QMargins());
    QWidget other;
    QVERIFY(QHBoxLayout(&other).contentsMargins() != QMargins());
}

void tst_KestMessageBox::captionsHaveRoomUnderAStyleSheet()
{
    // A least width is all that layouts know of a button then.
    qApp->setStyleSheet(QStringLiteral("QPushButton { min-width: 40px }"));
    const auto reset = qScopeGuard([] { qApp->setStyleSheet(QString()); });
    KestMessageBox box(KestMessageBox::Question, QStringLiteral("Title"), QStringLiteral("Text"),
                       KestMessageBox::Cancel);
    box.addButton(QStringLiteral("Save a copy elsewhere"), KestMessageBox::AcceptRole);
    box.addButton(QStringLiteral("Throw all of it away"), KestMessageBox::DestructiveRole);
    box.show();
    const QList<QPushButton *> buttons =
        box.findChild<QDialogButtonBox *>()->findChildren<QPushButton *>();
    QCOMPARE(buttons.size(), 3);
    for (const QPushButton *button : buttons)
        QVERIFY2(button->width() >= button->sizeHint().width(), qPrintable(button->text()));
}

void tst_KestMessageBox::textSettingsAreTheLabels()
{
    Box box;
    box.setTextFormat(Qt::RichText);
    box.setTextInteractionFlags(Qt::TextBrowserInteraction);
    QCOMPARE(textLabel(box)->textFormat(), Qt::RichText);
    QCOMPARE(textLabel(box)->textInteractionFlags(), Qt::TextBrowserInteraction);
    QCOMPARE(box.textFormat(), Qt::RichText);
    QCOMPARE(box.textInteractionFlags(), Qt::TextBrowserInteraction);
}

void tst_KestMessageBox::iconsAreTheStyles_data()
{
    QTest::addColumn<int>("icon");
    QTest::addColumn<int>("pixmap");
    QTest::newRow("information") << 1 << int(QStyle::SP_MessageBoxInformation);
    QTest::newRow("warning") << 2 << int(QStyle::SP_MessageBoxWarning);
    QTest::newRow("critical") << 3 << int(QStyle::SP_MessageBoxCritical);
    QTest::newRow("question") << 4 << int(QStyle::SP_MessageBoxQuestion);
}

void tst_KestMessageBox::iconsAreTheStyles()
{
    QFETCH(int, icon);
    QFETCH(int, pixmap);
    Box box;
    box.setIcon(Box::Icon(icon));
    QCOMPARE(box.icon(), Box::Icon(icon));
    const QPixmap expected = box.style()->standardPixmap(QStyle::StandardPixmap(pixmap));
    QVERIFY(!expected.isNull());
    QCOMPARE(iconLabel(box)->pixmap(Qt::ReturnByValue).toImage(), expected.toImage());
}

void tst_KestMessageBox::outermostStyleIsAskedForTheIcon()
{
    auto *inner = QStyleFactory::create(QStringLiteral("fusion"));
    const RecordingStyle outer(inner);
    Box box;
    box.setStyle(inner);
    box.setIcon(Box::Warning);
    QCOMPARE(outer.asked, QList<QStyle::StandardPixmap> { QStyle::SP_MessageBoxWarning });
    QVERIFY(!outer.toldMore);
    QCOMPARE(iconLabel(box)->pixmap(Qt::ReturnByValue).size(), QSize(3, 5));
}

void tst_KestMessageBox::sameIconAgainIsThatOfTheStyleByNow()
{
    const RecordingStyle other(QStyleFactory::create(QStringLiteral("fusion")));
    Box box;
    box.setIcon(Box::Warning);
    QVERIFY(iconLabel(box)->pixmap(Qt::ReturnByValue).size() != QSize(3, 5));
    box.setStyle(const_cast<RecordingStyle *>(&other));
    box.setIcon(Box::Warning);
    QCOMPARE(iconLabel(box)->pixmap(Qt::ReturnByValue).size(), QSize(3, 5));
}

void tst_KestMessageBox::noIconKeepsThePixmap()
{
    Box box;
    box.setIcon(Box::Critical);
    const QImage image = iconLabel(box)->pixmap(Qt::ReturnByValue).toImage();
    box.setIcon(Box::NoIcon);
    QCOMPARE(box.icon(), Box::NoIcon);
    QCOMPARE(iconLabel(box)->pixmap(Qt::ReturnByValue).toImage(), image);
}

void tst_KestMessageBox::pixmapTakesTheIconsPlace()
{
    Box box;
    box.setIcon(Box::Critical);
    QPixmap pixmap(20, 20);
    pixmap.fill(Qt::green);
    box.setIconPixmap(pixmap);
    QCOMPARE(box.icon(), Box::NoIcon);
    box.setIcon(Box::NoIcon);
    QCOMPARE(iconLabel(box)->pixmap(Qt::ReturnByValue).toImage().pixelColor(5, 5),
             QColor(Qt::green));
}

void tst_KestMessageBox::standardButtonsAreTheBoxs()
{
    Box box;
    box.setStandardButtons(Box::Save | Box::Discard | Box::Cancel);
    QCOMPARE(int(buttonBox(box)->standardButtons()), int(box.standardButtons()));
    for (const Box::StandardButton button : { Box::Save, Box::Discard, Box::Cancel })
        QCOMPARE(box.standardButton(buttonOf(box, button)), button);
    QPushButton elsewhere;
    QCOMPARE(box.standardButton(&elsewhere), Box::NoButton);
}

void tst_KestMessageBox::replacedButtonsAreForgotten()
{
    Box box;
    box.setStandardButtons(Box::Ok | Box::Cancel);
    box.setDefaultButton(Box::Ok);
    QCOMPARE(box.standardButton(nullptr), Box::Cancel);
    box.setStandardButtons(Box::Yes | Box::No);
    QCOMPARE(box.defaultButton(), Box::NoButton);
    QCOMPARE(box.standardButton(nullptr), Box::No);
}

void tst_KestMessageBox::keptButtonsAreRemembered()
{
    Box box;
    QPushButton *const custom = box.addButton(QStringLiteral("own"), Box::RejectRole);
    QCOMPARE(box.standardButton(nullptr), Box::NoButton); // the custom one, it is the only
    box.setStandardButtons(Box::Ok | Box::Cancel);
    // It is in the box still, and stays the escape button.
    QCOMPARE(box.standardButton(nullptr), Box::NoButton);
    delete custom;
    QCOMPARE(box.standardButton(nullptr), Box::Cancel);
}

void tst_KestMessageBox::removedEscapeButtonIsForgotten()
{
    Box box;
    const QScopedPointer<QPushButton> custom(box.addButton(QStringLiteral("own"), Box::RejectRole));
    QCOMPARE(box.standardButton(nullptr), Box::NoButton);
    box.removeButton(custom.data());
    box.setStandardButtons(Box::Ok | Box::Cancel);
    QCOMPARE(box.standardButton(nullptr), Box::Cancel);
}

void tst_KestMessageBox::buttonsAreAddedOnce()
{
    Box box;
    auto *button = new QPushButton(QStringLiteral("own"));
    box.addButton(button, Box::AcceptRole);
    box.addButton(button, Box::RejectRole);
    box.addButton(nullptr, Box::AcceptRole);
    QCOMPARE(buttonBox(box)->buttons(), QList<QAbstractButton *> { button });
    QCOMPARE(buttonBox(box)->buttonRole(button), QDialogButtonBox::AcceptRole);
}

void tst_KestMessageBox::buttonsWithTextAreCreated()
{
    Box box;
    QPushButton *const button = box.addButton(QStringLiteral("own"), Box::ActionRole);
    QCOMPARE(button->text(), QStringLiteral("own"));
    QVERIFY(box.isAncestorOf(button));
    QCOMPARE(buttonBox(box)->buttonRole(button), QDialogButtonBox::ActionRole);
}

void tst_KestMessageBox::standardButtonsAreAdded()
{
    Box box;
    QPushButton *const button = box.addButton(Box::Retry);
    QVERIFY(button);
    QCOMPARE(box.standardButtons(), Box::StandardButtons(Box::Retry));
    QCOMPARE(box.standardButton(button), Box::Retry);
}

void tst_KestMessageBox::removedButtonsLiveOn()
{
    Box box;
    QPushButton *const button = box.addButton(QStringLiteral("own"), Box::ActionRole);
    button->click();
    box.removeButton(nullptr);
    box.removeButton(button);
    QVERIFY(buttonBox(box)->buttons().isEmpty());
    QCOMPARE(box.clickedButton(), button); // not cleared
    delete button;

    // Nor is the escape button.
    box.setStandardButtons(Box::Ok | Box::Cancel);
    QCOMPARE(box.standardButton(nullptr), Box::Cancel);
    const QScopedPointer<QPushButton> cancel(buttonOf(box, Box::Cancel));
    box.removeButton(cancel.data());
    QCOMPARE(box.standardButton(nullptr), Box::NoButton);
}

void tst_KestMessageBox::removedButtonThatDiesIsForgotten()
{
    Box box;
    QPushButton *const button = box.addButton(Box::Ok);
    box.setDefaultButton(Box::Ok);
    QCOMPARE(box.standardButton(nullptr), Box::Ok);
    button->click();
    box.removeButton(button);
    delete button;
    QVERIFY(!box.clickedButton());
    QCOMPARE(box.defaultButton(), Box::NoButton);
    QCOMPARE(box.standardButton(nullptr), Box::NoButton);
}

void tst_KestMessageBox::defaultButtonHasTheFocus()
{
    Box box;
    box.setStandardButtons(Box::Yes | Box::No | Box::Cancel);
    box.setDefaultButton(Box::No);
    QCOMPARE(box.defaultButton(), Box::No);
    QVERIFY(!buttonOf(box, Box::No)->isDefault());
    box.show();
    box.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    QVERIFY(buttonOf(box, Box::No)->hasFocus());
}

void tst_KestMessageBox::unknownDefaultButtonIsIgnored()
{
    Box box;
    box.setStandardButtons(Box::Yes | Box::No);
    box.setDefaultButton(Box::Yes);
    box.setDefaultButton(Box::Cancel);
    QCOMPARE(box.defaultButton(), Box::Yes);
}

void tst_KestMessageBox::customDefaultIsNoStandardButton()
{
    Box box;
    box.setStandardButtons(Box::Yes | Box::No);
    QPushButton *const own = box.addButton(QStringLiteral("own"), Box::AcceptRole);
    own->setDefault(true);
    QCOMPARE(box.standardButton(own), Box::NoButton);
    QCOMPARE(box.defaultButton(), Box::NoButton);
    // The one that was chosen stays so, whichever Enter presses.
    box.setDefaultButton(Box::No);
    QCOMPARE(box.defaultButton(), Box::No);
    QVERIFY(own->isDefault());
    QAbstractButton *const no = buttonOf(box, Box::No);
    box.removeButton(no);
    QCOMPARE(box.defaultButton(), Box::NoButton);
    box.addButton(no, Box::NoRole);
    QCOMPARE(box.defaultButton(), Box::NoButton);
    delete no;
    QCOMPARE(box.defaultButton(), Box::NoButton);
}

void tst_KestMessageBox::standardButtonsClose_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<int>("result"); // -1: it leaves the box open
    const QMetaEnum names = QMetaEnum::fromType<Box::StandardButtons>();
    const int results[] = { 1, 1, 1, 1, 1, 1, 0, 0, 0, 1, 1, 0, 0, -1, -1, -1, -1, -1 };
    for (int i = 0; i < 18; ++i)
        QTest::newRow(names.valueToKey(AllButtons[i])) << int(AllButtons[i]) << results[i];
}

void tst_KestMessageBox::standardButtonsClose()
{
    QFETCH(int, button);
    QFETCH(int, result);
    Box box;
    box.setStandardButtons(Box::StandardButtons(button));
    box.show();
    QSignalSpy finished(&box, &QDialog::finished);
    QPushButton *const clicked = buttonOf(box, Box::StandardButton(button));
    QTest::mouseClick(clicked, Qt::LeftButton);
    QCOMPARE(box.clickedButton(), clicked);
    QCOMPARE(box.standardButton(box.clickedButton()), Box::StandardButton(button));
    QCOMPARE(finished.count(), result < 0 ? 0 : 1);
    QCOMPARE(box.isVisible(), result < 0);
    if (result >= 0)
        QCOMPARE(finished.first().first().toInt(), result);
}

void tst_KestMessageBox::rolesClose_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<int>("result");
    QTest::newRow("accept") << int(Box::AcceptRole) << 1;
    QTest::newRow("reject") << int(Box::RejectRole) << 0;
    QTest::newRow("destructive") << int(Box::DestructiveRole) << -1;
    QTest::newRow("action") << int(Box::ActionRole) << -1;
    QTest::newRow("help") << int(Box::HelpRole) << -1;
    QTest::newRow("yes") << int(Box::YesRole) << 1;
    QTest::newRow("no") << int(Box::NoRole) << 0;
    QTest::newRow("reset") << int(Box::ResetRole) << -1;
    QTest::newRow("apply") << int(Box::ApplyRole) << -1;
}

void tst_KestMessageBox::rolesClose()
{
    QFETCH(int, role);
    QFETCH(int, result);
    Box box;
    QPushButton *const button = box.addButton(QStringLiteral("own"), Box::ButtonRole(role));
    box.show();
    QSignalSpy finished(&box, &QDialog::finished);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(box.clickedButton(), button);
    QCOMPARE(finished.count(), result < 0 ? 0 : 1);
    if (result >= 0)
        QCOMPARE(finished.first().first().toInt(), result);
}

void tst_KestMessageBox::clickIsRecordedBeforeTheBoxCloses()
{
    Box box;
    box.setStandardButtons(Box::Ok);
    QAbstractButton *seen = nullptr;
    connect(&box, &QDialog::finished, &box, [&] { seen = box.clickedButton(); });
    box.show();
    QTest::mouseClick(buttonOf(box, Box::Ok), Qt::LeftButton);
    QCOMPARE(seen, buttonOf(box, Box::Ok));
}

void tst_KestMessageBox::closingButtonsCallWhatAHostOverrides()
{
    class Asking : public Box
    {
    public:
        void accept() override { calls += QStringLiteral("accept "); }
        void reject() override { calls += QStringLiteral("reject "); }
        QString calls;
    };
    Asking box;
    box.setStandardButtons(Box::Ok | Box::Cancel);
    box.show();
    buttonOf(box, Box::Ok)->click();
    buttonOf(box, Box::Cancel)->click();
    QCOMPARE(box.calls, QStringLiteral("accept reject "));
    QVERIFY(box.isVisible());
}

void tst_KestMessageBox::clickIsKeptForTheNextShow()
{
    Box box;
    box.setStandardButtons(Box::Ok | Box::Cancel);
    box.show();
    QTest::mouseClick(buttonOf(box, Box::Ok), Qt::LeftButton);
    box.show();
    QCOMPARE(box.standardButton(box.clickedButton()), Box::Ok);
    box.close();
    QCOMPARE(box.standardButton(box.clickedButton()), Box::Ok);
}

void tst_KestMessageBox::escapeButton_data()
{
    QTest::addColumn<int>("buttons");
    QTest::addColumn<int>("escape");
    const auto row = [](const char *name, Box::StandardButtons buttons,
                        Box::StandardButton escape) {
        QTest::newRow(name) << int(buttons) << int(escape);
    };
    row("none", Box::NoButton, Box::NoButton);
    row("cancel", Box::Ok | Box::Cancel, Box::Cancel);
    row("cancel before others", Box::Close | Box::Abort | Box::No | Box::Cancel, Box::Cancel);
    row("the only one", Box::Ok, Box::Ok);
    row("the only one, whatever its role", Box::Help, Box::Help);
    row("reject role", Box::Ok | Box::Close, Box::Close);
    row("reject before no", Box::No | Box::Abort | Box::Yes, Box::Abort);
    row("no role", Box::Yes | Box::No, Box::No);
    row("first of the reject role", Box::Ok | Box::Close | Box::Abort, Box::Abort);
    row("first of the no role", Box::Yes | Box::NoToAll | Box::No, Box::No);
    row("nothing fits", Box::Ok | Box::Apply, Box::NoButton);
    row("yes and discard", Box::Yes | Box::Discard, Box::NoButton);
}

void tst_KestMessageBox::escapeButton()
{
    QFETCH(int, buttons);
    QFETCH(int, escape);
    Box box;
    box.setStandardButtons(Box::StandardButtons(buttons));
    QCOMPARE(box.standardButton(nullptr), Box::StandardButton(escape));
}

void tst_KestMessageBox::escapeButtonByRole()
{
    Box box;
    box.addButton(QStringLiteral("yes"), Box::YesRole);
    QPushButton *const no = box.addButton(QStringLiteral("no"), Box::NoRole);
    QPushButton *const reject = box.addButton(QStringLiteral("reject"), Box::RejectRole);
    QVERIFY(no && reject);
    box.detectEscapeButton();
    // Custom buttons are no standard buttons; which one it is shows when it goes.
    QCOMPARE(box.standardButton(nullptr), Box::NoButton);
    box.addButton(Box::Cancel);
    QCOMPARE(box.standardButton(nullptr), Box::NoButton);
    delete reject;
    QCOMPARE(box.standardButton(nullptr), Box::Cancel);
}

void tst_KestMessageBox::escapeButtonIsFoundOnce()
{
    Box box;
    box.setStandardButtons(Box::Ok);
    QCOMPARE(box.standardButton(nullptr), Box::Ok);
    box.addButton(Box::Cancel);
    QCOMPARE(box.standardButton(nullptr), Box::Ok);
}

void tst_KestMessageBox::staticFunctions_data()
{
    QTest::addColumn<int>("icon");
    QTest::newRow("information") << int(Box::Information);
    QTest::newRow("warning") << int(Box::Warning);
    QTest::newRow("critical") << int(Box::Critical);
    QTest::newRow("question") << int(Box::Question);
}

void tst_KestMessageBox::staticFunctions()
{
    QFETCH(int, icon);
    QWidget parent;
    onOpenBox([&](Box *box) {
        QCOMPARE(box->icon(), Box::Icon(icon));
        QCOMPARE(box->windowTitle(), QStringLiteral("title"));
        QCOMPARE(box->text(), QStringLiteral("text"));
        QCOMPARE(box->standardButtons(), Box::Save | Box::Cancel);
        QCOMPARE(box->defaultButton(), Box::Cancel);
        QCOMPARE(box->windowFlags(), Qt::WindowFlags(0x08000903));
        QCOMPARE(box->parentWidget(), &parent);
        QVERIFY(box->isModal());
        // Of the title bar's buttons only the close button is there.
        QVERIFY(box->titleBar()->findChild<QWidget *>(QStringLiteral("closeBtn"))->isVisible());
        for (const char *name : { "minimumSizeBtn", "maximumSizeBtn" })
            QVERIFY(!box->titleBar()->findChild<QWidget *>(QLatin1String(name))->isVisible());
        buttonOf(*box, Box::Save)->click();
    });
    decltype(&Box::information) const functions[] = { nullptr, &Box::information, &Box::warning,
                                                      &Box::critical, &Box::question };
    QCOMPARE(functions[icon](&parent, QStringLiteral("title"), QStringLiteral("text"),
                             Box::Save | Box::Cancel, Box::Cancel),
             Box::Save);
    QVERIFY(parent.findChildren<Box *>().isEmpty());
}

void tst_KestMessageBox::staticFunctionsReturnTheClick_data()
{
    QTest::addColumn<int>("button");
    const QMetaEnum names = QMetaEnum::fromType<Box::StandardButtons>();
    for (const Box::StandardButton button : AllButtons)
        QTest::newRow(names.valueToKey(button)) << int(button);
}

void tst_KestMessageBox::staticFunctionsReturnTheClick()
{
    QFETCH(int, button);
    onOpenBox([&](Box *box) {
        buttonOf(*box, Box::StandardButton(button))->click();
        box->close();
    });
    QCOMPARE(Box::information(nullptr, QString(), QString(),
                              Box::StandardButtons(button) | Box::Cancel | Box::Ok),
             Box::StandardButton(button));
}

void tst_KestMessageBox::staticFunctionsReturnTheEscapeButton_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : { "escape", "close", "close button" })
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_KestMessageBox::staticFunctionsReturnTheEscapeButton()
{
    QFETCH(QString, way);
    const auto leave = [&](Box *box) {
        if (way == QLatin1String("escape"))
            QTest::keyClick(box, Qt::Key_Escape);
        else if (way == QLatin1String("close"))
            box->close();
        else
            QTest::mouseClick(box->titleBar()->findChild<QWidget *>(QStringLiteral("closeBtn")),
                              Qt::LeftButton);
    };
    onOpenBox(leave);
    QCOMPARE(Box::information(nullptr, QString(), QString(), Box::Ok | Box::Cancel, Box::Ok),
             Box::Cancel);
    onOpenBox(leave);
    QCOMPARE(Box::information(nullptr, QString(), QString()), Box::Ok);
    onOpenBox(leave);
    QCOMPARE(Box::question(nullptr, QString(), QString()), Box::No);
    onOpenBox(leave);
    QCOMPARE(Box::question(nullptr, QString(), QString(), Box::Ok | Box::Apply), Box::NoButton);
}

void tst_KestMessageBox::discardLeavesTheBoxOpen()
{
    bool open = false;
    onOpenBox([&](Box *box) {
        buttonOf(*box, Box::Discard)->click();
        open = box->isVisible();
        box->close();
    });
    QCOMPARE(Box::warning(nullptr, QString(), QString(), Box::Save | Box::Discard | Box::Cancel),
             Box::Discard);
    QVERIFY(open);
}

void tst_KestMessageBox::discardClosesWhereTheHostSaysSo()
{
    for (const bool escape : { false, true }) {
        Box box(Box::Question, QStringLiteral("Close"), QStringLiteral("Save the changes?"),
                Box::Save | Box::Cancel);
        QPushButton *const discard = box.addButton(Box::Discard);
        connect(discard, &QPushButton::clicked, &box, &QDialog::accept);
        QTimer::singleShot(0, &box, [&] {
            if (escape)
                QTest::keyClick(&box, Qt::Key_Escape);
            else
                QTest::mouseClick(discard, Qt::LeftButton);
        });
        box.exec();
        QCOMPARE(box.standardButton(box.clickedButton()), escape ? Box::Cancel : Box::Discard);
    }
}

void tst_KestMessageBox::defaultArgumentsAreQMessageBoxs()
{
    // The buttons that each static function shows when it is told nothing.
    const auto ours = [](const std::function<void()> &call) {
        int buttons = -1;
        onOpenBox([&](Box *box) {
            buttons = int(box->standardButtons());
            box->close();
        });
        call();
        return buttons;
    };
    const auto theirs = [](const std::function<void()> &call) {
        int buttons = -1;
        QTimer::singleShot(0, qApp, [&] {
            auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            buttons = box ? int(box->standardButtons()) : -2;
            if (box)
                box->reject();
        });
        call();
        return buttons;
    };
    const QString text = QStringLiteral("text");
    QCOMPARE(ours([&] { Box::information(nullptr, text, text); }),
             theirs([&] { QMessageBox::information(nullptr, text, text); }));
    QCOMPARE(ours([&] { Box::warning(nullptr, text, text); }),
             theirs([&] { QMessageBox::warning(nullptr, text, text); }));
    QCOMPARE(ours([&] { Box::critical(nullptr, text, text); }),
             theirs([&] { QMessageBox::critical(nullptr, text, text); }));
    QCOMPARE(ours([&] { Box::question(nullptr, text, text); }),
             theirs([&] { QMessageBox::question(nullptr, text, text); }));
}

void tst_KestMessageBox::parentMayDieWhileTheBoxIsOpen()
{
    auto *parent = new QWidget;
    parent->show();
    onOpenBox([&](Box *) { delete parent; });
    QCOMPARE(Box::question(parent, QStringLiteral("t"), QStringLiteral("t")), Box::NoButton);
}

void tst_KestMessageBox::boxesMayBeNested()
{
    QWidget parent;
    parent.show();
    Box::StandardButton inner = Box::NoButton;
    onOpenBox([&](Box *outer) {
        onOpenBox([&](Box *box) {
            QVERIFY(box != outer);
            buttonOf(*box, Box::Retry)->click();
        });
        inner = Box::critical(outer, QString(), QString(), Box::Retry | Box::Abort);
        buttonOf(*outer, Box::Yes)->click();
    });
    QCOMPARE(Box::question(&parent, QString(), QString()), Box::Yes);
    QCOMPARE(inner, Box::Retry);
}

void tst_KestMessageBox::sizeIsFixedByTheRule_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("pointSize");
    const QString sentence = QStringLiteral("A text of some length. ");
    QTest::newRow("short") << QStringLiteral("t") << QStringLiteral("Short.") << 0;
    QTest::newRow("long text") << QStringLiteral("t") << sentence.repeated(20) << 0;
    QTest::newRow("long title") << sentence.repeated(3) << QStringLiteral("Short.") << 0;
    QTest::newRow("very long title") << sentence.repeated(40) << QStringLiteral("Short.") << 0;
    QTest::newRow("rich text") << QStringLiteral("t")
                               << QStringLiteral("<h1>Head</h1><p>%1</p>").arg(sentence.repeated(9))
                               << 0;
    QTest::newRow("huge font") << QStringLiteral("t") << sentence.repeated(3) << 40;
    QTest::newRow("one long word") << QStringLiteral("t") << QString(200, QLatin1Char('M')) << 0;
}

void tst_KestMessageBox::sizeIsFixedByTheRule()
{
    QFETCH(QString, title);
    QFETCH(QString, text);
    QFETCH(int, pointSize);
    Box box(Box::Information, title, text, Box::Ok | Box::Cancel);
    if (pointSize > 0) {
        QFont font = box.font();
        font.setPointSize(pointSize);
        box.setFont(font);
    }
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));

    const int screen = QGuiApplication::primaryScreen()->size().width();
    const int hard = screen <= 1024 ? screen : qMin(screen - 480, 1000);
    const int soft = qMin(screen / 2, 500);
    // The same contents in a layout of the test's own.
    QWidget frame; // the margins of a window of its own would be others
    QWidget contents(&frame);
    contents.setFont(box.font());
    auto *layout = new QVBoxLayout(&contents);
    auto *row = new QHBoxLayout;
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(20);
    auto *icon = new QLabel;
    icon->setPixmap(iconLabel(box)->pixmap(Qt::ReturnByValue));
    auto *label = new QLabel(text);
    row->addWidget(icon);
    row->addWidget(label, 1);
    layout->addLayout(row);
    layout->addWidget(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel));
    contents.ensurePolished();
    layout->activate();
    int width = layout->totalMinimumSize().width();
    const bool wrapped = width > soft;
    if (wrapped) {
        label->setWordWrap(true);
        layout->activate();
        width = qMax(soft, layout->totalMinimumSize().width());
    }
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    width = qMax(width, qMin(metrics.horizontalAdvance(title) + 50, hard));
    layout->activate();
    const int height = layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                                   : layout->totalMinimumSize().height();
    const QMargins inner = layout->contentsMargins();
    const QMargins outer = box.contentsMargins();

    QCOMPARE(textLabel(box)->wordWrap(), wrapped);
    QCOMPARE(box.minimumSize(), box.maximumSize());
    QCOMPARE(box.width(), width + inner.left() + inner.right() + outer.left() + outer.right());
    QCOMPARE(box.height(),
             height + box.titleBar()->height() + inner.top() + inner.bottom() + outer.top()
                 + outer.bottom());
    QCOMPARE(box.titleBar()->height(), 42); // the least that it takes
}

void tst_KestMessageBox::titleWidensTheBoxUpToTheLimit_data()
{
    QTest::addColumn<int>("screen");
    QTest::addColumn<int>("limit");
    const int limits[][2] = { { 640, 640 },   { 1023, 1023 }, { 1024, 1024 },
                              { 1025, 545 },  { 1280, 800 },  { 1479, 999 },
                              { 1480, 1000 }, { 1481, 1000 }, { 3840, 1000 } };
    for (const auto &row : limits)
        QTest::addRow("%d", row[0]) << row[0] << row[1];
}

void tst_KestMessageBox::titleWidensTheBoxUpToTheLimit()
{
    QFETCH(int, screen);
    QFETCH(int, limit);
    const ScreenWidth width(screen);
    Box box(Box::NoIcon, QString(500, QLatin1Char('M')), QStringLiteral("Short."), Box::Ok);
    box.show();
    QCOMPARE(box.width(), limit + widthAround(box));
}

void tst_KestMessageBox::contentsAreWrappedBeyondTheLimit_data()
{
    QTest::addColumn<int>("screen");
    QTest::addColumn<int>("limit");
    const int limits[][2] = { { 600, 300 },  { 601, 300 },  { 998, 499 },
                              { 1000, 500 }, { 1002, 500 }, { 3840, 500 } };
    for (const auto &row : limits)
        QTest::addRow("%d", row[0]) << row[0] << row[1];
}

void tst_KestMessageBox::contentsAreWrappedBeyondTheLimit()
{
    QFETCH(int, screen);
    QFETCH(int, limit);
    const ScreenWidth width(screen);
    Box box(Box::NoIcon, QString(), QStringLiteral("Some words"), Box::Ok);
    box.setIconPixmap(QPixmap(100, 10));
    const int others = box.layoutMinimumWidth() - 100;
    // As wide as may be.
    box.setIconPixmap(QPixmap(limit - others, 10));
    box.show();
    QVERIFY(!textLabel(box)->wordWrap());
    QCOMPARE(box.width(), limit + widthAround(box));
    box.setIconPixmap(QPixmap(limit - others + 1, 10));
    box.updateSize();
    QVERIFY(textLabel(box)->wordWrap());
    // No narrower for the words that are below each other now.
    QCOMPARE(box.width(), limit + widthAround(box));
}

void tst_KestMessageBox::limitsAreThoseOfTheScreenBelowThePointer()
{
    const QPoint pointer = QCursor::pos();
    const QRect first = QGuiApplication::primaryScreen()->geometry();
    const AnotherScreen another(QRect(first.right() + 1, 0, 640, 480), 1, false);
    Box box(Box::NoIcon, QString(500, QLatin1Char('M')), QStringLiteral("Short."), Box::Ok);
    QCursor::setPos(first.right() + 100, 100);
    QTest::ignoreMessage(QtDebugMsg, "KestMessageBox::updateSize screenNum= 1");
    box.show();
    QCOMPARE(box.width(), 640 + widthAround(box));
    QCursor::setPos(first.center());
    QTest::ignoreMessage(QtDebugMsg, "KestMessageBox::updateSize screenNum= 0");
    box.updateSize();
    QCOMPARE(box.width(), first.width() + widthAround(box));
    // Where there is none the first one's are taken.
    QCursor::setPos(first.right() + 5000, 100);
    QTest::ignoreMessage(QtDebugMsg, "KestMessageBox::updateSize screenNum= 0");
    box.updateSize();
    QCOMPARE(box.width(), first.width() + widthAround(box));
    QCursor::setPos(pointer);
}

void tst_KestMessageBox::shorterTextIsNotWrappedAnyMore()
{
    const QString sentence = QStringLiteral("A sentence of some words that take their room. ");
    Box box(Box::Information, QStringLiteral("t"), sentence.repeated(20), Box::Ok);
    box.show();
    QVERIFY(textLabel(box)->wordWrap());
    box.setText(QStringLiteral("A few short words."));
    box.updateSize();
    QVERIFY(!textLabel(box)->wordWrap());
    QVERIFY(textLabel(box)->width() >= textLabel(box)->sizeHint().width());
}

void tst_KestMessageBox::screenIsWrittenOut()
{
    Box box;
    QTest::ignoreMessage(QtDebugMsg, "KestMessageBox::updateSize screenNum= 0");
    box.show();
    QTest::ignoreMessage(QtDebugMsg, "KestMessageBox::updateSize screenNum= 0");
    box.setStandardButtons(Box::Ok);
}

void tst_KestMessageBox::hiddenBoxIsNotResized()
{
    Box box;
    box.resize(123, 99);
    box.updateSize();
    QCOMPARE(box.size(), QSize(123, 99));
    QVERIFY(box.maximumSize() != box.minimumSize());
    QVERIFY(box.layoutMinimumWidth() > 0);
    box.setCentralWidget(nullptr);
    QCOMPARE(box.layoutMinimumWidth(), 0);
    box.show();
    QVERIFY(box.isVisible());
}

void tst_KestMessageBox::onlyStandardButtonsResizeTheOpenBox_data()
{
    QTest::addColumn<QString>("change");
    for (const char *change : { "title", "text", "icon", "pixmap", "standard button", "own button",
                                "button with a text", "removed button" })
        QTest::newRow(change) << QString::fromLatin1(change);
}

void tst_KestMessageBox::onlyStandardButtonsResizeTheOpenBox()
{
    QFETCH(QString, change);
    const QString wide(40, QLatin1Char('M'));
    Box box(Box::NoIcon, QString(), QStringLiteral("x"), Box::Ok);
    QPushButton *const first = box.addButton(wide, Box::ActionRole);
    if (change != QLatin1String("removed button"))
        delete first;
    box.show();
    const QSize size = box.size();
    if (change == QLatin1String("title"))
        box.setWindowTitle(wide);
    else if (change == QLatin1String("text"))
        box.setText(wide);
    else if (change == QLatin1String("icon"))
        box.setIcon(Box::Warning);
    else if (change == QLatin1String("pixmap"))
        box.setIconPixmap(QPixmap(300, 200));
    else if (change == QLatin1String("standard button"))
        box.addButton(Box::RestoreDefaults);
    else if (change == QLatin1String("own button"))
        box.addButton(new QPushButton(wide), Box::ActionRole);
    else if (change == QLatin1String("button with a text"))
        box.addButton(wide, Box::ActionRole);
    else
        box.removeButton(first);
    QCOMPARE(box.size(), size);
    if (change == QLatin1String("removed button"))
        delete first;
    QCoreApplication::processEvents();
    QCOMPARE(box.size(), size);
    box.updateSize();
    QVERIFY(box.size() != size);
}

void tst_KestMessageBox::tallerTitleBarMakesTheBoxTaller()
{
    const auto heightWith = [](int titleBar) {
        Box box(Box::NoIcon, QString(), QStringLiteral("x"), Box::Ok);
        box.titleBar()->setFixedHeight(titleBar);
        box.show();
        return box.height();
    };
    QCOMPARE(heightWith(75) - heightWith(50), 25);
}

void tst_KestMessageBox::measuringLaysTheContentsOut()
{
    Box box(Box::NoIcon, QString(), QStringLiteral("Text"), Box::Ok);
    box.setIconPixmap(QPixmap(10, 10));
    box.show();
    QCOMPARE(iconLabel(box)->width(), 10);
    const int width = box.layoutMinimumWidth();
    box.setIconPixmap(QPixmap(30, 10));
    QCOMPARE(iconLabel(box)->width(), 10);
    QVERIFY(box.layoutMinimumWidth() >= width);
    QCOMPARE(iconLabel(box)->width(), 30);
}

void tst_KestMessageBox::sizingLaysOutWhatChangedMeanwhile()
{
    // Knows only when it is measured where its contents go.
    class Layout : public QVBoxLayout
    {
    public:
        using QVBoxLayout::QVBoxLayout;

        QSize minimumSize() const override
        {
            const QSize result = QVBoxLayout::minimumSize();
            itemAt(0)->setAlignment(alignment);
            const_cast<Layout *>(this)->invalidate();
            return result;
        }

        Qt::Alignment alignment = Qt::AlignLeft;
    };
    Box box(Box::NoIcon, QString(50, QLatin1Char('M')), QString(), Box::NoButton);
    auto *contents = new QWidget;
    auto *layout = new Layout(contents);
    auto *inner = new QWidget;
    inner->setFixedSize(20, 20);
    layout->addWidget(inner);
    box.setCentralWidget(contents);
    box.show();
    QCoreApplication::processEvents();
    const QSize size = box.size();
    const int left = inner->x();
    layout->alignment = Qt::AlignRight;
    box.updateSize();
    QCOMPARE(box.size(), size);
    QVERIFY(inner->x() > left + 20);
}

void tst_KestMessageBox::boxIsCentredAnewOnEveryShow()
{
    QWidget parent;
    parent.setGeometry(200, 200, 400, 400);
    parent.show();
    Box box(&parent);
    box.setStandardButtons(Box::Ok);
    box.show();
    const QPoint first = box.pos();
    box.hide();
    box.move(3, 5);
    QVERIFY(box.testAttribute(Qt::WA_Moved));
    box.show();
    QVERIFY(!box.testAttribute(Qt::WA_Moved));
    QCOMPARE(box.pos(), first);
}

void tst_KestMessageBox::restoredBoxIsSizedAnew()
{
    Box box(Box::NoIcon, QString(), QStringLiteral("x"), Box::Ok);
    box.show();
    const QSize size = box.size();
    box.setText(QString(40, QLatin1Char('M')));
    QShowEvent restored;
    QSpontaneKeyEvent::setSpontaneous(&restored);
    qApp->notify(&box, &restored);
    QVERIFY(box.width() > size.width());
}

void tst_KestMessageBox::enterPressesTheDefaultButton()
{
    onOpenBox([](Box *box) {
        box->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(box));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    });
    QCOMPARE(Box::question(nullptr, QString(), QString(), Box::Yes | Box::No, Box::No), Box::No);
}

void tst_KestMessageBox::firstFocusIsOnTheButtonThatEnterPresses_data()
{
    QTest::addColumn<int>("buttons");
    QTest::addColumn<QString>("ownDefault"); // text of a button that is made the default one
    QTest::addColumn<bool>("link");
    QTest::newRow("accept role") << int(Box::Ok | Box::Cancel) << QString() << false;
    QTest::newRow("accept role after others")
        << int(Box::Help | Box::Cancel | Box::Save) << QString() << false;
    QTest::newRow("yes and no") << int(Box::Yes | Box::No) << QString() << false;
    QTest::newRow("one that rejects") << int(Box::Close) << QString() << false;
    QTest::newRow("none that closes") << int(Box::Apply | Box::Reset) << QString() << false;
    QTest::newRow("a default of the host's")
        << int(Box::Ok | Box::Cancel) << QStringLiteral("own") << false;
    QTest::newRow("with a link in the text") << int(Box::Ok | Box::Cancel) << QString() << true;
}

void tst_KestMessageBox::firstFocusIsOnTheButtonThatEnterPresses()
{
    QFETCH(int, buttons);
    QFETCH(QString, ownDefault);
    QFETCH(bool, link);
    Box box;
    box.setText(QStringLiteral("<a href='there'>there</a>"));
    if (link)
        box.setTextInteractionFlags(Qt::TextBrowserInteraction);
    box.setStandardButtons(Box::StandardButtons(buttons));
    QPushButton *own = nullptr;
    if (!ownDefault.isEmpty()) {
        own = box.addButton(ownDefault, Box::ActionRole);
        own->setDefault(true);
    }
    box.show();
    box.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    auto *focused = qobject_cast<QPushButton *>(QApplication::focusWidget());
    QVERIFY(focused);
    QCOMPARE(box.defaultButton(), Box::NoButton);
    if (own)
        QCOMPARE(focused, own);

    // Enter on the box itself, whatever has the focus, presses the same one.
    QTest::keyClick(&box, Qt::Key_Return);
    QCOMPARE(box.clickedButton(), focused);
}

void tst_KestMessageBox::secondShowPutsTheFocusOnAButtonAgain()
{
    Box box;
    box.setStandardButtons(Box::Ok | Box::Cancel);
    box.show();
    box.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    box.titleBar()->setFocus();
    QVERIFY(box.titleBar()->hasFocus());
    box.hide();
    QCOMPARE(box.focusWidget(), box.titleBar());
    box.show();
    QCOMPARE(box.focusWidget(), buttonOf(box, Box::Ok));

    // Shown already: nothing opens.
    box.titleBar()->setFocus();
    box.show();
    QCOMPARE(box.focusWidget(), box.titleBar());
}

void tst_KestMessageBox::hiddenDefaultButtonDoesNotTakeTheFocus()
{
    Box box;
    box.setStandardButtons(Box::Ok | Box::Cancel);
    auto *inTheBar = new QPushButton(QStringLiteral("Own"), box.titleBar());
    inTheBar->setAutoDefault(false);
    inTheBar->setFocus();
    QPushButton *const hidden = box.addButton(QStringLiteral("Default"), Box::ActionRole);
    hidden->setDefault(true);
    hidden->hide();
    box.show();
    QVERIFY(hidden->isDefault());
    QCOMPARE(box.focusWidget(), inTheBar);
}

void tst_KestMessageBox::inputHiddenMeanwhileLosesTheFocus()
{
    Box box;
    box.setStandardButtons(Box::Ok | Box::Cancel);
    auto *input = new QLineEdit;
    box.centralWidget()->layout()->addWidget(input);
    input->setFocus();
    box.show();
    QCOMPARE(box.focusWidget(), input);
    box.hide();
    input->hide();
    box.show();
    QCOMPARE(box.focusWidget(), buttonOf(box, Box::Ok));
}

void tst_KestMessageBox::inputDisabledMeanwhileLosesTheFocus()
{
    // Tab is a letter to it, and does not lead away.
    class Editor : public QLineEdit
    {
    protected:
        bool focusNextPrevChild(bool) override { return true; }
    };
    Box box;
    box.setStandardButtons(Box::Ok | Box::Cancel);
    auto *input = new Editor;
    box.centralWidget()->layout()->addWidget(input);
    input->setFocus();
    box.show();
    QCOMPARE(box.focusWidget(), input);
    box.hide();
    input->setEnabled(false);
    QCOMPARE(box.focusWidget(), input);
    box.show();
    QCOMPARE(box.focusWidget(), buttonOf(box, Box::Ok));
}

void tst_KestMessageBox::focusOutsideOfTheMessageMovesIntoIt()
{
    Box box;
    box.setStandardButtons(Box::Ok | Box::Cancel);
    auto *inTheBar = new QPushButton(QStringLiteral("Own"), box.titleBar());
    inTheBar->setAutoDefault(false);
    inTheBar->setFocus();
    QCOMPARE(box.focusWidget(), inTheBar);
    box.show();
    QCOMPARE(box.focusWidget(), buttonOf(box, Box::Ok));
}

void tst_KestMessageBox::focusThatTheHostSetStays()
{
    Box box;
    box.setStandardButtons(Box::Ok | Box::Cancel);
    buttonOf(box, Box::Cancel)->setFocus();
    box.show();
    box.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    QCOMPARE(QApplication::focusWidget(), buttonOf(box, Box::Cancel));
}

void tst_KestMessageBox::letterPressesTheButtonWithThatMnemonic()
{
    Box box;
    box.setText(QStringLiteral("Which?"));
    QPushButton *const first = box.addButton(QStringLiteral("&First"), Box::ActionRole);
    QPushButton *const second = box.addButton(QStringLiteral("S&econd"), Box::ActionRole);
    QPushButton *const cyrillic = box.addButton(QStringLiteral("&\u0414\u0430"), Box::ActionRole);
    QPushButton *const none = box.addButton(QStringLiteral("Third && last"), Box::ActionRole);
    none->setShortcut(QStringLiteral("Ctrl+T"));
    QPushButton *const number = box.addButton(QStringLiteral("&7 times"), Box::ActionRole);
    box.show();
    box.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    QSignalSpy thirdClicked(none, &QPushButton::clicked);

    QTest::keyClick(QApplication::focusWidget(), Qt::Key_E);
    QCOMPARE(box.clickedButton(), second);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::ShiftModifier);
    QCOMPARE(box.clickedButton(), first);
    QKeyEvent de(QEvent::KeyPress, 0x0414, Qt::NoModifier, QStringLiteral("\u0434"));
    QCoreApplication::sendEvent(QApplication::focusWidget(), &de);
    QCOMPARE(box.clickedButton(), cyrillic);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_7, Qt::KeypadModifier);
    QCOMPARE(box.clickedButton(), number);

    // No mnemonics, or no plain letters.
    for (const Qt::Key key : { Qt::Key_T, Qt::Key_S, Qt::Key_L, Qt::Key_Ampersand, Qt::Key_F5 })
        QTest::keyClick(QApplication::focusWidget(), key);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_E, Qt::ControlModifier);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_E, Qt::MetaModifier);
    // A key that is still held down from before the box was there.
    QKeyEvent held(QEvent::KeyPress, Qt::Key_E, Qt::NoModifier, QStringLiteral("e"), true);
    QCoreApplication::sendEvent(QApplication::focusWidget(), &held);
    QTest::qWait(150);
    QCOMPARE(box.clickedButton(), number);
    QCOMPARE(thirdClicked.count(), 0);
    QVERIFY(box.isVisible());
}

void tst_KestMessageBox::letterPressesOnlyButtonsThatCanBePressed()
{
    Box box;
    QPushButton *const hidden = box.addButton(QStringLiteral("&Go"), Box::ActionRole);
    QPushButton *const disabled = box.addButton(QStringLiteral("&Go"), Box::ActionRole);
    QPushButton *const third = box.addButton(QStringLiteral("&Go"), Box::ActionRole);
    disabled->setEnabled(false);
    box.show();
    hidden->hide();
    QTest::keyClick(&box, Qt::Key_G);
    QTRY_COMPARE(box.clickedButton(), third);
}

void tst_KestMessageBox::letterTypedIntoAnInputPressesNothing()
{
    Box box;
    box.setStandardButtons(Box::Ok);
    QPushButton *const go = box.addButton(QStringLiteral("&Go"), Box::ActionRole);
    QVERIFY(go);
    auto *input = new QLineEdit;
    box.centralWidget()->layout()->addWidget(input);
    input->setFocus();
    box.show();
    box.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    QTest::keyClick(QApplication::focusWidget(), 'g');
    QCOMPARE(input->text(), QStringLiteral("g"));
    QVERIFY(!box.clickedButton());
}

void tst_KestMessageBox::copyTakesTitleTextAndButtons()
{
    Box box(Box::Question, QStringLiteral("Title"), QStringLiteral("First line\nSecond && <last>"),
            Box::Ok | Box::Cancel);
    buttonOf(box, Box::Ok)->setText(QStringLiteral("&Do && go"));
    buttonOf(box, Box::Cancel)->setText(QStringLiteral("Ca&ncel"));
    QPushButton *const hidden = box.addButton(QStringLiteral("Hidden"), Box::ActionRole);
    box.show();
    hidden->hide();
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);

    // The buttons in the order in which they are read.
    const bool okFirst = buttonOf(box, Box::Ok)->x() < buttonOf(box, Box::Cancel)->x();
    const QString line(27, QLatin1Char('-'));
    const QStringList expected {
        line,
        QStringLiteral("Title"),
        line,
        QStringLiteral("First line"),
        QStringLiteral("Second && <last>"),
        line,
        okFirst ? QStringLiteral("Do & go   Cancel   ") : QStringLiteral("Cancel   Do & go   "),
        line,
        QString(),
    };
    QCOMPARE(QGuiApplication::clipboard()->text().split(QLatin1Char('\n')), expected);
    QVERIFY(box.isVisible());
    QVERIFY(!box.clickedButton());

    // The same of a box that is not open.
    box.hide();
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    QKeyEvent copy(QEvent::KeyPress, Qt::Key_C, Qt::ControlModifier);
    QCoreApplication::sendEvent(&box, &copy);
    QCOMPARE(QGuiApplication::clipboard()->text().split(QLatin1Char('\n')), expected);
}

void tst_KestMessageBox::copiedTextIsPlain_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("copied");
    const QString rich = QStringLiteral("<b>Bold</b> &amp; <i>slanted</i><br>next");
    const QString read = QStringLiteral("Bold & slanted\nnext");
    QTest::newRow("guessed") << rich << int(Qt::AutoText) << read;
    QTest::newRow("rich") << rich << int(Qt::RichText) << read;
    QTest::newRow("plain") << rich << int(Qt::PlainText) << rich;
    QTest::newRow("Markdown") << QStringLiteral("**Bold** and *slanted*") << int(Qt::MarkdownText)
                              << QStringLiteral("Bold and slanted");
}

void tst_KestMessageBox::copiedTextIsPlain()
{
    QFETCH(QString, text);
    QFETCH(int, format);
    QFETCH(QString, copied);
    Box box(Box::Question, QStringLiteral("Title"), text, Box::Ok);
    box.setTextFormat(Qt::TextFormat(format));
    box.show();
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
    const QString line = QString(27, QLatin1Char('-')) + QLatin1Char('\n');
    QCOMPARE(QGuiApplication::clipboard()->text().section(line, 2, 2).trimmed(), copied);
}

void tst_KestMessageBox::copyOfASelectionTakesOnlyThat()
{
    Box box(Box::Question, QStringLiteral("Title"), QStringLiteral("Some words"), Box::Ok);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.show();
    box.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    textLabel(box)->setFocus();
    textLabel(box)->setSelection(5, 5);
    QTest::keyClick(textLabel(box), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("words"));
}

void tst_KestMessageBox::screenReaderFindsTextAndButtons()
{
    Box box(Box::Question, QStringLiteral("Title"), QStringLiteral("What now?"),
            Box::Yes | Box::No);
    box.show();
    QAccessibleInterface *const dialog = QAccessible::queryAccessibleInterface(&box);
    QVERIFY(dialog);
    QCOMPARE(dialog->role(), QAccessible::AlertMessage); // as QMessageBox
    QCOMPARE(dialog->text(QAccessible::Name), QStringLiteral("Title"));
    QAccessibleInterface *const text = QAccessible::queryAccessibleInterface(textLabel(box));
    QCOMPARE(text->role(), QAccessible::StaticText);
    QCOMPARE(text->text(QAccessible::Name), QStringLiteral("What now?"));
    for (const Box::StandardButton button : { Box::Yes, Box::No }) {
        QPushButton *const widget = buttonOf(box, button);
        QAccessibleInterface *const found = QAccessible::queryAccessibleInterface(widget);
        QCOMPARE(found->role(), QAccessible::Button);
        QVERIFY(!found->text(QAccessible::Name).isEmpty());
        QVERIFY(found->state().focusable);
    }
}

void tst_KestMessageBox::screenReaderIsAlertedOnShow()
{
    static QList<QObject *> alerted;
    static QList<QPoint> places; // of the box, meanwhile
    alerted.clear();
    places.clear();
    // As when a screen reader is there.
    QPlatformAccessibility *const platform =
        QGuiApplicationPrivate::platformIntegration()->accessibility();
    platform->setActive(true);
    const QAccessible::UpdateHandler old =
        QAccessible::installUpdateHandler([](QAccessibleEvent *event) {
            if (event->type() != QAccessible::Alert)
                return;
            alerted.append(event->object());
            places.append(static_cast<QWidget *>(event->object())->pos());
        });
    QWidget parent;
    parent.setGeometry(200, 200, 400, 300);
    parent.show();
    Box box(Box::Warning, QStringLiteral("Title"), QStringLiteral("Careful."), Box::Ok, &parent);
    const int beforeShow = alerted.size();
    box.show();
    const int afterShow = alerted.size();
    // Back from the task bar it is nothing new.
    QShowEvent restored;
    QSpontaneKeyEvent::setSpontaneous(&restored);
    qApp->notify(&box, &restored);
    const int afterRestoring = alerted.size();
    box.hide();
    parent.move(300, 300);
    box.show();
    QAccessible::installUpdateHandler(old);
    platform->setActive(false);
    QCOMPARE(beforeShow, 0);
    QCOMPARE(afterShow, 1);
    QCOMPARE(afterRestoring, 1);
    QCOMPARE(alerted, (QList<QObject *> { &box, &box }));
    QCOMPARE(places.last(), box.pos());
    QVERIFY(places.first() != places.last());
}

void tst_KestMessageBox::titleIsMeasuredInTheFontOfTitles()
{
    const QFont before = QApplication::font("QMdiSubWindowTitleBar");
    const auto widthWith = [](int pixels) {
        QFont font;
        font.setPixelSize(pixels);
        QApplication::setFont(font, "QMdiSubWindowTitleBar");
        KestMessageBox box(KestMessageBox::NoIcon, QStringLiteral("A title of some length"),
                           QStringLiteral("x"), KestMessageBox::Ok);
        box.show();
        return box.width() - QFontMetrics(font).horizontalAdvance(box.windowTitle());
    };
    const int small = widthWith(14);
    const int large = widthWith(22);
    QApplication::setFont(before, "QMdiSubWindowTitleBar");
    QCOMPARE(large, small);
}

void tst_KestMessageBox::lettersWithAltAreShortcuts()
{
    KestMessageBox box(KestMessageBox::NoIcon, QString(), QString(), KestMessageBox::Yes);
    box.show();
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Y, Qt::AltModifier, QStringLiteral("y"));
    QCoreApplication::sendEvent(&box, &event);
    QVERIFY(!box.clickedButton());
    QVERIFY(box.isVisible());
}

void tst_KestMessageBox::defaultButtonIsGivenTheFocusForNoKey()
{
    class Reasons : public QObject
    {
    public:
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::FocusIn)
                list.append(static_cast<QFocusEvent *>(event)->reason());
            return false;
        }
        QList<Qt::FocusReason> list;
    };
    KestMessageBox box(KestMessageBox::NoIcon, QString(), QString(),
                       KestMessageBox::Yes | KestMessageBox::No);
    box.show();
    QVERIFY(QTest::qWaitForWindowActive(&box));
    auto *no = box.findChild<QDialogButtonBox *>()->button(QDialogButtonBox::No);
    Reasons reasons;
    no->installEventFilter(&reasons);
    box.setDefaultButton(KestMessageBox::No);
    QCOMPARE(reasons.list, QList<Qt::FocusReason> { Qt::OtherFocusReason });
}

void tst_KestMessageBox::eachMarginOfTheContentsCounts()
{
    const auto sizeWith = [](const QMargins &margins) {
        KestMessageBox box(KestMessageBox::NoIcon, QString(), QString(30, QLatin1Char('x')),
                           KestMessageBox::Ok);
        box.centralWidget()->layout()->setContentsMargins(margins);
        box.show();
        return box.size();
    };
    // Within the contents, and once more around them.
    QCOMPARE(sizeWith(QMargins(1, 20, 40, 80)) - sizeWith(QMargins()), 2 * QSize(1 + 40, 20 + 80));
}

QTEST_MAIN(tst_KestMessageBox)
#include "tst_kestmessagebox.moc"
