// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestComboBox.h"

#include "KestStyleSheet.h"

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>
#include <QtCore/QStringListModel>
#include <QtGui/QIntValidator>
#include <QtGui/QStandardItemModel>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QCompleter>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QStyleFactory>

#include <memory>

namespace {

QStringList fruits()
{
    return { QStringLiteral("Apple"), QStringLiteral("Banana"), QStringLiteral("Cherry") };
}

QStringList texts(const QComboBox &box)
{
    QStringList result;
    for (int i = 0; i < box.count(); ++i)
        result.append(box.itemText(i));
    return result;
}

} // namespace

class tst_KestComboBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // What is its own.
    void declaresOneSignalAndNothingElse();
    void listIsAPlainListViewOfTheBox();
    void boxFreesItsList();
    void popupIsAnnouncedOncePerOpening_data();
    void popupIsAnnouncedOncePerOpening();
    void openPopupIsAnnouncedAgain();
    void popupIsAnnouncedBeforeItIsVisible();
    void slotMayDeleteTheBox_data();
    void slotMayDeleteTheBox();
    void slotFillsTheListThatOpens();
    void slotMayReplaceTheModel();
    void emptyBoxAnnouncesButShowsNothing();
    void itemRulesOfSheetsReachTheList_data();
    void itemRulesOfSheetsReachTheList();

    // What QComboBox promises: run on both classes side by side.
    void startsLikeAComboBox_data() { addBoxes(); }
    void startsLikeAComboBox();
    void itemsAreAddedInsertedAndRemoved_data() { addBoxes(); }
    void itemsAreAddedInsertedAndRemoved();
    void currentItemFollowsTheModel_data() { addBoxes(); }
    void currentItemFollowsTheModel();
    void currentSignalsCarryIndexAndText_data() { addBoxes(); }
    void currentSignalsCarryIndexAndText();
    void dataIsFoundAgain_data() { addBoxes(); }
    void dataIsFoundAgain();
    void arrowKeysMoveTheCurrentItem_data() { addBoxes(); }
    void arrowKeysMoveTheCurrentItem();
    void lettersSearch_data() { addBoxes(); }
    void lettersSearch();
    void wheelMovesTheCurrentItem_data() { addBoxes(); }
    void wheelMovesTheCurrentItem();
    void returnInTheListActivates_data() { addBoxes(); }
    void returnInTheListActivates();
    void escapeClosesTheListUnchanged_data() { addBoxes(); }
    void escapeClosesTheListUnchanged();
    void disabledItemsAreSkipped_data() { addBoxes(); }
    void disabledItemsAreSkipped();
    void editingChangesTheTextOnly_data() { addBoxes(); }
    void editingChangesTheTextOnly();
    void editedTextIsCompleted_data() { addBoxes(); }
    void editedTextIsCompleted();
    void validatorGuardsTheEditor_data() { addBoxes(); }
    void validatorGuardsTheEditor();
    void insertPolicies_data();
    void insertPolicies();
    void duplicatesAreRefused_data() { addBoxes(); }
    void duplicatesAreRefused();
    void maximumCountCutsTheList_data() { addBoxes(); }
    void maximumCountCutsTheList();
    void modelIsReplaced_data() { addBoxes(); }
    void modelIsReplaced();
    void modelColumnIsShown_data() { addBoxes(); }
    void modelColumnIsShown();
    void disabledBoxIgnoresKeys_data() { addBoxes(); }
    void disabledBoxIgnoresKeys();
    void accessibilityReadsIt_data() { addBoxes(); }
    void accessibilityReadsIt();
    void closedBoxLooksTheSame_data();
    void closedBoxLooksTheSame();

private:
    static void addBoxes();
    static std::unique_ptr<QComboBox> makeBox();
};

void tst_KestComboBox::addBoxes()
{
    QTest::addColumn<bool>("kest");
    QTest::newRow("QComboBox") << false;
    QTest::newRow("KestComboBox") << true;
}

// The box of the row, with three items.
std::unique_ptr<QComboBox> tst_KestComboBox::makeBox()
{
    const bool kest = *static_cast<bool *>(QTest::qData("kest", qMetaTypeId<bool>()));
    std::unique_ptr<QComboBox> box;
    if (kest)
        box = std::make_unique<KestComboBox>();
    else
        box = std::make_unique<QComboBox>();
    box->addItems(fruits());
    return box;
}

void tst_KestComboBox::declaresOneSignalAndNothingElse()
{
    const QMetaObject &meta = KestComboBox::staticMetaObject;
    QCOMPARE(QByteArray(meta.className()), QByteArray("KestComboBox"));
    QCOMPARE(QByteArray(meta.superClass()->className()), QByteArray("QComboBox"));
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod signal = meta.method(meta.methodOffset());
    QCOMPARE(signal.methodType(), QMetaMethod::Signal);
    QCOMPARE(signal.methodSignature(), QByteArray("aboutToShowPopup()"));
    QCOMPARE(meta.propertyCount(), meta.propertyOffset());
}

void tst_KestComboBox::listIsAPlainListViewOfTheBox()
{
    QWidget parent;
    KestComboBox box(&parent);
    QCOMPARE(box.parentWidget(), &parent);
    QCOMPARE(QByteArray(box.view()->metaObject()->className()), QByteArray("QListView"));
    QCOMPARE(box.view()->model(), box.model());
    QCOMPARE(box.findChildren<QListView *>().count(), 1);
}

void tst_KestComboBox::boxFreesItsList()
{
    auto *box = new KestComboBox;
    const QPointer<QAbstractItemView> view = box->view();
    delete box;
    QVERIFY(view.isNull());
}

void tst_KestComboBox::popupIsAnnouncedOncePerOpening_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<bool>("editable");
    for (const char *way : { "call", "click", "Space", "F4", "Alt+Down" })
        QTest::newRow(way) << QString::fromLatin1(way) << false;
    for (const char *way : { "call", "F4", "Alt+Down" })
        QTest::addRow("%s, editable", way) << QString::fromLatin1(way) << true;
}

void tst_KestComboBox::popupIsAnnouncedOncePerOpening()
{
    QFETCH(QString, way);
    QFETCH(bool, editable);
    KestComboBox box;
    box.setEditable(editable);
    box.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    box.style()->setParent(&box);
    box.addItems(fruits());
    box.show();
    QVERIFY(QTest::qWaitForWindowExposed(&box));
    QSignalSpy announced(&box, &KestComboBox::aboutToShowPopup);
    for (int opening = 1; opening <= 3; ++opening) {
        if (way == QLatin1String("call"))
            box.showPopup();
        else if (way == QLatin1String("click"))
            QTest::mousePress(&box, Qt::LeftButton);
        else if (way == QLatin1String("Space"))
            QTest::keyClick(&box, Qt::Key_Space);
        else if (way == QLatin1String("F4"))
            QTest::keyClick(&box, Qt::Key_F4);
        else
            QTest::keyClick(&box, Qt::Key_Down, Qt::AltModifier);
        QTRY_VERIFY(box.view()->isVisible());
        QCOMPARE(announced.count(), opening);
        box.hidePopup();
        QTRY_VERIFY(!box.view()->isVisible());
        QCOMPARE(announced.count(), opening);
        // The list eats the press that closed it within this time.
        QTest::qWait(QApplication::doubleClickInterval() / 10);
    }
}

void tst_KestComboBox::openPopupIsAnnouncedAgain()
{
    // Whoever shows it anew wants what is in it looked after.
    KestComboBox box;
    box.addItems(fruits());
    box.show();
    QSignalSpy announced(&box, &KestComboBox::aboutToShowPopup);
    box.showPopup();
    QVERIFY(box.view()->isVisible());
    box.showPopup();
    QVERIFY(box.view()->isVisible());
    QCOMPARE(announced.count(), 2);
}

void tst_KestComboBox::popupIsAnnouncedBeforeItIsVisible()
{
    KestComboBox box;
    box.addItems(fruits());
    box.show();
    bool visibleThen = true;
    connect(&box, &KestComboBox::aboutToShowPopup, &box,
            [&] { visibleThen = box.view()->isVisible(); });
    box.showPopup();
    QVERIFY(!visibleThen);
    QVERIFY(box.view()->isVisible());
}

void tst_KestComboBox::slotFillsTheListThatOpens()
{
    KestComboBox box;
    box.show();
    int opening = 0;
    connect(&box, &KestComboBox::aboutToShowPopup, &box, [&] {
        box.clear();
        for (int i = 0; i <= opening; ++i)
            box.addItem(QString::number(i));
        ++opening;
    });
    for (int count = 1; count <= 3; ++count) {
        box.showPopup();
        QVERIFY(box.view()->isVisible());
        QCOMPARE(box.view()->model()->rowCount(), count);
        const QModelIndex last = box.view()->model()->index(count - 1, 0);
        QVERIFY(box.view()->viewport()->rect().contains(box.view()->visualRect(last)));
        box.hidePopup();
    }
}

void tst_KestComboBox::slotMayReplaceTheModel()
{
    KestComboBox box;
    QStringListModel model(fruits());
    box.show();
    connect(&box, &KestComboBox::aboutToShowPopup, &box, [&] { box.setModel(&model); });
    box.showPopup();
    QVERIFY(box.view()->isVisible());
    QCOMPARE(box.view()->model(), &model);
}

void tst_KestComboBox::slotMayDeleteTheBox_data()
{
    // Not by the mouse, whose press QComboBox goes on to handle.
    QTest::addColumn<int>("key");
    QTest::newRow("by the program") << 0;
    QTest::newRow("F4") << int(Qt::Key_F4);
    QTest::newRow("Alt+Down") << int(Qt::Key_Down | Qt::ALT);
}

void tst_KestComboBox::slotMayDeleteTheBox()
{
    QFETCH(int, key);
    QWidget window;
    const QPointer<KestComboBox> box(new KestComboBox(&window));
    box->addItem(QStringLiteral("One"));
    window.show();
    connect(box, &KestComboBox::aboutToShowPopup, qApp, [box] { delete box; });
    if (key == 0) {
        box->showPopup();
    } else {
        QKeyEvent event(QEvent::KeyPress, key & ~Qt::KeyboardModifierMask,
                        Qt::KeyboardModifiers(key & Qt::KeyboardModifierMask));
        QCoreApplication::sendEvent(box, &event);
    }
    QVERIFY(box.isNull());
}

void tst_KestComboBox::emptyBoxAnnouncesButShowsNothing()
{
    KestComboBox box;
    box.show();
    QSignalSpy announced(&box, &KestComboBox::aboutToShowPopup);
    box.showPopup();
    QCOMPARE(announced.count(), 1);
    QVERIFY(!box.view()->isVisible());
}

void tst_KestComboBox::itemRulesOfSheetsReachTheList_data()
{
    QTest::addColumn<QString>("style");
    QTest::newRow("Fusion") << QStringLiteral("Fusion");
    QTest::newRow("Windows") << QStringLiteral("Windows");
}

void tst_KestComboBox::itemRulesOfSheetsReachTheList()
{
    QFETCH(QString, style);
    const std::unique_ptr<QStyle> base(QStyleFactory::create(style));
    KestComboBox box;
    box.setStyle(base.get());
    box.addItems({ QStringLiteral("Item 1"), QStringLiteral("Item 2") });
    box.setStyleSheet(KestStyleSheet::defaultStyleSheet());
    box.show();
    box.showPopup();
    QCOMPARE(box.view()->visualRect(box.model()->index(0, 0)).height(), 21);

    // The padding moves the text by as many pixels.
    const auto firstInk = [&box](int index) {
        const QImage image = box.view()->viewport()->grab().toImage();
        const QRect row = box.view()->visualRect(box.model()->index(index, 0));
        const QRgb paper = image.pixel(row.right() - 2, row.center().y());
        for (int x = 0; x < image.width(); ++x) {
            for (int y = row.top() + 2; y < row.bottom() - 2; ++y) {
                if (image.pixel(x, y) != paper)
                    return x;
            }
        }
        return -1;
    };
    const int five = firstInk(0);
    QVERIFY(five > 0);
    QCOMPARE(firstInk(1), five); // not only of the selected item
    box.hidePopup();
    box.setStyleSheet(
        KestStyleSheet::defaultStyleSheet()
        + QStringLiteral("QComboBox QListView::item { padding-left: 17px; height: 40px }"));
    box.showPopup();
    QCOMPARE(box.view()->visualRect(box.model()->index(0, 0)).height(), 40);
    QCOMPARE(firstInk(0), five + 12);
    QCOMPARE(firstInk(1), five + 12);
}

void tst_KestComboBox::startsLikeAComboBox()
{
    const auto box = makeBox();
    const QComboBox plain;
    const QMetaObject &meta = QComboBox::staticMetaObject;
    for (const char *name :
         { "editable", "maxVisibleItems", "maxCount", "insertPolicy", "sizeAdjustPolicy",
           "minimumContentsLength", "iconSize", "duplicatesEnabled", "frame", "modelColumn" }) {
        QVERIFY(meta.indexOfProperty(name) >= 0);
        QCOMPARE(box->property(name), plain.property(name));
    }
    QCOMPARE(box->count(), 3);
    QCOMPARE(box->currentIndex(), 0);
    QCOMPARE(box->currentText(), QStringLiteral("Apple"));
    QCOMPARE(box->focusPolicy(), plain.focusPolicy());
}

void tst_KestComboBox::itemsAreAddedInsertedAndRemoved()
{
    const auto box = makeBox();
    box->insertItem(1, QStringLiteral("Apricot"));
    box->addItem(QStringLiteral("Date"));
    box->removeItem(0);
    QCOMPARE(texts(*box),
             QStringList({ QStringLiteral("Apricot"), QStringLiteral("Banana"),
                           QStringLiteral("Cherry"), QStringLiteral("Date") }));
    box->insertSeparator(1);
    QCOMPARE(box->count(), 5);
    QCOMPARE(box->itemData(1, Qt::AccessibleDescriptionRole).toString(),
             QStringLiteral("separator"));
    box->clear();
    QCOMPARE(box->count(), 0);
    QCOMPARE(box->currentIndex(), -1);
}

void tst_KestComboBox::currentItemFollowsTheModel()
{
    const auto box = makeBox();
    box->setCurrentIndex(1);
    box->insertItem(0, QStringLiteral("Acai"));
    QCOMPARE(box->currentIndex(), 2);
    QCOMPARE(box->currentText(), QStringLiteral("Banana"));
    box->setItemText(2, QStringLiteral("Plantain"));
    QCOMPARE(box->currentText(), QStringLiteral("Plantain"));
    box->removeItem(2);
    QCOMPARE(box->currentText(), QStringLiteral("Cherry"));
}

void tst_KestComboBox::currentSignalsCarryIndexAndText()
{
    const auto box = makeBox();
    QSignalSpy index(box.get(), qOverload<int>(&QComboBox::currentIndexChanged));
    QSignalSpy text(box.get(), &QComboBox::currentTextChanged);
    QSignalSpy activated(box.get(), qOverload<int>(&QComboBox::activated));
    box->setCurrentIndex(2);
    box->setCurrentIndex(2);
    box->setCurrentText(QStringLiteral("Banana"));
    box->setCurrentText(QStringLiteral("nothing like it"));
    QCOMPARE(index.count(), 2);
    QCOMPARE(index.at(0).at(0).toInt(), 2);
    QCOMPARE(index.at(1).at(0).toInt(), 1);
    QCOMPARE(text.at(1).at(0).toString(), QStringLiteral("Banana"));
    QCOMPARE(activated.count(), 0);
}

void tst_KestComboBox::dataIsFoundAgain()
{
    const auto box = makeBox();
    box->addItem(QStringLiteral("Date"), 42);
    QCOMPARE(box->findData(42), 3);
    QCOMPARE(box->findText(QStringLiteral("Cherry")), 2);
    QCOMPARE(box->findText(QStringLiteral("ch"), Qt::MatchStartsWith), 2);
    QCOMPARE(box->findText(QStringLiteral("none")), -1);
    box->setCurrentIndex(3);
    QCOMPARE(box->currentData().toInt(), 42);
}

void tst_KestComboBox::arrowKeysMoveTheCurrentItem()
{
    const auto box = makeBox();
    QSignalSpy activated(box.get(), qOverload<int>(&QComboBox::activated));
    QTest::keyClick(box.get(), Qt::Key_Down);
    QCOMPARE(box->currentIndex(), 1);
    QTest::keyClick(box.get(), Qt::Key_End);
    QCOMPARE(box->currentIndex(), 2);
    QTest::keyClick(box.get(), Qt::Key_Down);
    QCOMPARE(box->currentIndex(), 2);
    QTest::keyClick(box.get(), Qt::Key_Up);
    QCOMPARE(box->currentIndex(), 1);
    QTest::keyClick(box.get(), Qt::Key_Home);
    QCOMPARE(box->currentIndex(), 0);
    QCOMPARE(activated.count(), 4);
}

void tst_KestComboBox::lettersSearch()
{
    const auto box = makeBox();
    QTest::keyClick(box.get(), Qt::Key_C);
    QCOMPARE(box->currentText(), QStringLiteral("Cherry"));
}

void tst_KestComboBox::wheelMovesTheCurrentItem()
{
    const auto box = makeBox();
    const auto turn = [&box](int delta) {
        QWheelEvent event(QPointF(5, 5), box->mapToGlobal(QPoint(5, 5)), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(box.get(), &event);
    };
    turn(-120);
    QCOMPARE(box->currentIndex(), 1);
    turn(120);
    QCOMPARE(box->currentIndex(), 0);
}

void tst_KestComboBox::returnInTheListActivates()
{
    const auto box = makeBox();
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box.get()));
    QSignalSpy activated(box.get(), qOverload<int>(&QComboBox::activated));
    box->showPopup();
    QTest::keyClick(box->view(), Qt::Key_Down);
    QCOMPARE(box->currentIndex(), 0); // not yet
    QTest::keyClick(box->view(), Qt::Key_Return);
    QTRY_VERIFY(!box->view()->isVisible());
    QCOMPARE(box->currentIndex(), 1);
    QCOMPARE(activated.count(), 1);
    QCOMPARE(activated.at(0).at(0).toInt(), 1);
}

void tst_KestComboBox::escapeClosesTheListUnchanged()
{
    const auto box = makeBox();
    box->show();
    QVERIFY(QTest::qWaitForWindowExposed(box.get()));
    box->showPopup();
    QTest::keyClick(box->view(), Qt::Key_Down);
    QTest::keyClick(box->view(), Qt::Key_Escape);
    QTRY_VERIFY(!box->view()->isVisible());
    QCOMPARE(box->currentIndex(), 0);
}

void tst_KestComboBox::disabledItemsAreSkipped()
{
    const auto box = makeBox();
    auto *model = qobject_cast<QStandardItemModel *>(box->model());
    QVERIFY(model);
    model->item(1)->setEnabled(false);
    QTest::keyClick(box.get(), Qt::Key_Down);
    QCOMPARE(box->currentIndex(), 2);
}

void tst_KestComboBox::editingChangesTheTextOnly()
{
    const auto box = makeBox();
    box->setEditable(true);
    box->setCompleter(nullptr);
    QSignalSpy edited(box.get(), &QComboBox::editTextChanged);
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), QStringLiteral("Fig"));
    QCOMPARE(box->currentText(), QStringLiteral("Fig"));
    QCOMPARE(box->currentIndex(), 0);
    QCOMPARE(edited.last().at(0).toString(), QStringLiteral("Fig"));
    QCOMPARE(box->count(), 3);
    box->clearEditText();
    QCOMPARE(box->currentText(), QString());
    box->setEditable(false);
    QVERIFY(!box->lineEdit());
    QCOMPARE(box->currentText(), QStringLiteral("Apple"));
}

void tst_KestComboBox::editedTextIsCompleted()
{
    const auto box = makeBox();
    box->setEditable(true);
    box->completer()->setCompletionMode(QCompleter::InlineCompletion);
    box->show();
    box->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(box.get()));
    box->lineEdit()->setFocus();
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), QStringLiteral("che"));
    QCOMPARE(box->currentText(), QStringLiteral("cherry"));
    QCOMPARE(box->lineEdit()->selectedText(), QStringLiteral("rry"));
}

void tst_KestComboBox::validatorGuardsTheEditor()
{
    const auto box = makeBox();
    box->setEditable(true);
    QIntValidator validator(0, 99);
    box->setValidator(&validator);
    box->lineEdit()->clear();
    QTest::keyClicks(box->lineEdit(), QStringLiteral("7x123"));
    QCOMPARE(box->currentText(), QStringLiteral("71"));
}

void tst_KestComboBox::insertPolicies_data()
{
    QTest::addColumn<bool>("kest");
    QTest::addColumn<QComboBox::InsertPolicy>("policy");
    QTest::addColumn<QStringList>("expected");
    const QString fig = QStringLiteral("Bog");
    const QString a = QStringLiteral("Apple");
    const QString b = QStringLiteral("Banana");
    const QString c = QStringLiteral("Cherry");
    const auto row = [](const char *name, QComboBox::InsertPolicy policy,
                        const QStringList &expected) {
        QTest::addRow("QComboBox %s", name) << false << policy << expected;
        QTest::addRow("KestComboBox %s", name) << true << policy << expected;
    };
    row("none", QComboBox::NoInsert, { a, b, c });
    row("top", QComboBox::InsertAtTop, { fig, a, b, c });
    row("current", QComboBox::InsertAtCurrent, { a, fig, c });
    row("bottom", QComboBox::InsertAtBottom, { a, b, c, fig });
    row("after", QComboBox::InsertAfterCurrent, { a, b, fig, c });
    row("before", QComboBox::InsertBeforeCurrent, { a, fig, b, c });
    row("alphabetically", QComboBox::InsertAlphabetically, { a, b, fig, c });
}

void tst_KestComboBox::insertPolicies()
{
    QFETCH(QComboBox::InsertPolicy, policy);
    QFETCH(QStringList, expected);
    const auto box = makeBox();
    box->setEditable(true);
    box->setCompleter(nullptr);
    box->setInsertPolicy(policy);
    box->setCurrentIndex(1);
    box->lineEdit()->selectAll();
    QTest::keyClicks(box->lineEdit(), QStringLiteral("Bog"));
    QTest::keyClick(box->lineEdit(), Qt::Key_Return);
    QCOMPARE(texts(*box), expected);
    QCOMPARE(box->currentText(), QStringLiteral("Bog"));
}

void tst_KestComboBox::duplicatesAreRefused()
{
    const auto box = makeBox();
    box->setEditable(true);
    box->setCompleter(nullptr);
    box->lineEdit()->setText(QStringLiteral("Cherry"));
    QTest::keyClick(box->lineEdit(), Qt::Key_Return);
    QCOMPARE(box->count(), 3);
    QCOMPARE(box->currentIndex(), 2);
    box->setDuplicatesEnabled(true);
    QTest::keyClick(box->lineEdit(), Qt::Key_Return);
    QVERIFY(box->count() > 3);
}

void tst_KestComboBox::maximumCountCutsTheList()
{
    const auto box = makeBox();
    box->setMaxCount(2);
    QCOMPARE(texts(*box), QStringList({ QStringLiteral("Apple"), QStringLiteral("Banana") }));
    box->addItem(QStringLiteral("Date"));
    QCOMPARE(box->count(), 2);
}

void tst_KestComboBox::modelIsReplaced()
{
    const auto box = makeBox();
    QStringListModel model({ QStringLiteral("x"), QStringLiteral("y") });
    box->setModel(&model);
    QCOMPARE(box->view()->model(), &model);
    QCOMPARE(texts(*box), QStringList({ QStringLiteral("x"), QStringLiteral("y") }));
    QCOMPARE(box->currentIndex(), 0);
    model.setStringList({});
    QCOMPARE(box->currentIndex(), -1);
    QCOMPARE(box->currentText(), QString());
}

void tst_KestComboBox::modelColumnIsShown()
{
    const auto box = makeBox();
    QStandardItemModel model(2, 2);
    model.setItem(0, 1, new QStandardItem(QStringLiteral("one")));
    model.setItem(1, 1, new QStandardItem(QStringLiteral("two")));
    box->setModel(&model);
    box->setModelColumn(1);
    box->setCurrentIndex(1);
    QCOMPARE(box->currentText(), QStringLiteral("two"));
    QCOMPARE(qobject_cast<QListView *>(box->view())->modelColumn(), 1);
}

void tst_KestComboBox::disabledBoxIgnoresKeys()
{
    const auto box = makeBox();
    box->setEnabled(false);
    QTest::keyClick(box.get(), Qt::Key_Down);
    QTest::mousePress(box.get(), Qt::LeftButton);
    QCOMPARE(box->currentIndex(), 0);
    QVERIFY(!box->view()->isVisible());
}

void tst_KestComboBox::accessibilityReadsIt()
{
    const auto box = makeBox();
    QAccessibleInterface *face = QAccessible::queryAccessibleInterface(box.get());
    QVERIFY(face);
    QCOMPARE(face->role(), QAccessible::ComboBox);
    QCOMPARE(face->text(QAccessible::Value), QStringLiteral("Apple"));
    QVERIFY(!face->state().disabled);
}

void tst_KestComboBox::closedBoxLooksTheSame_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("plain") << Qt::LeftToRight << true;
    QTest::newRow("disabled") << Qt::LeftToRight << false;
    QTest::newRow("right to left") << Qt::RightToLeft << true;
}

void tst_KestComboBox::closedBoxLooksTheSame()
{
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(bool, enabled);
    KestComboBox box;
    QComboBox plain;
    for (QComboBox *each : { static_cast<QComboBox *>(&box), &plain }) {
        each->addItems(fruits());
        each->setLayoutDirection(direction);
        each->setEnabled(enabled);
        each->resize(each->sizeHint());
    }
    QCOMPARE(box.sizeHint(), plain.sizeHint());
    QCOMPARE(box.grab().toImage(), plain.grab().toImage());
}

QTEST_MAIN(tst_KestComboBox)

#include "tst_kestcombobox.moc"
