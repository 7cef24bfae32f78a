// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "TestedQt.h"
#include "Util.h"

#include "OnEvent.h"

#include <QtCore/QPointer>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QWidgetAction>

namespace {

using Item = std::shared_ptr<KestWidgetItem>;

// A bar without anything of its own.
class Bar : public QWidget
{
public:
    Bar() : layout(new QHBoxLayout(this)) { }
    ~Bar() override { items.clear(); }

    Item add(QAction *action, QAction *before = nullptr)
    {
        const auto item =
            std::make_shared<KestWidgetItem>(action, Qt::Horizontal, QSize(16, 16), this);
        Util::addItem(item, items, before, layout);
        return item;
    }

    QList<QWidget *> widgets() const
    {
        QList<QWidget *> result;
        for (int i = 0; i < layout->count(); ++i)
            result.append(layout->itemAt(i)->widget());
        return result;
    }

    QList<Item> items;
    QHBoxLayout *layout;
};

QPixmap plain(const QSize &size, const QColor &color)
{
    QPixmap pixmap(size);
    pixmap.fill(color);
    return pixmap;
}

QColor middleOf(const QPixmap &pixmap)
{
    return pixmap.toImage().pixelColor(pixmap.width() / 2, pixmap.height() / 2);
}

} // namespace

class tst_Util : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { useHighDpiPixmaps(); }
    void findReturnsTheFirstMatch();
    void findReturnsAnEmptyPointerOtherwise();
    void findFindsNothingForNull();
    void findOrphanReturnsTheFirstWhoseActionDied();
    void itemsAreAppendedWithoutBefore();
    void itemsAreInsertedInFrontOfBefore();
    void itemsAreInsertedInFrontOfTheFirstMatch();
    void unknownBeforeAppends();
    void customWidgetsTakeTheActionsVisibility();
    void layoutItemsHaveNoStretch();
    void nothingToAddIsIgnored();
    void separatorAppearsOnAShownBar();
    void addedWidgetMayMoveToAnotherLayout();
    void addedWidgetMayBeTakenAwayAtOnce();
    void addedItemMayBeTakenAtOnce();
    void takenItemLeavesTheOthers();
    void takenItemWithoutWidgetLeavesTheLayoutAsItIs();

    void iconPixmapHasTheFirstSize();
    void iconPixmapIsScaledDownOnly_data();
    void iconPixmapIsScaledDownOnly();
    void iconPixmapIsSharpAtHigherRatios();
    void iconPixmapIsThatOfTheState();
    void iconPixmapIsNullWithoutIconOrRoom();
    void iconPixelsAreExact();
    void iconPixelsAreThoseOfAnUncheckedIcon();

    void hiddenWidgetIsDeletedLater();
    void nothingToHideIsIgnored();
    void widgetMayDieOfBeingHidden();
};

void tst_Util::findReturnsTheFirstMatch()
{
    Bar bar;
    QAction first;
    QAction second;
    const Item a = bar.add(&first);
    const Item b = bar.add(&second);
    const Item again = bar.add(&first);
    QVERIFY(Util::find(&first, bar.items) == a);
    QVERIFY(Util::find(&second, bar.items) == b);
    QVERIFY(Util::find(again->widget(), bar.items) == again);
    QVERIFY(Util::find(b->widget(), bar.items) == b);
}

void tst_Util::findReturnsAnEmptyPointerOtherwise()
{
    Bar bar;
    QAction action;
    QWidget widget;
    QVERIFY(!Util::find(&action, bar.items));
    QVERIFY(!Util::find(&widget, bar.items));
    QAction other;
    bar.add(&other);
    QVERIFY(!Util::find(&action, bar.items));
    QVERIFY(!Util::find(&widget, bar.items));
}

void tst_Util::findFindsNothingForNull()
{
    Bar bar;
    QAction action;
    bar.add(&action)->release();
    QCOMPARE(bar.items.size(), 1);
    QVERIFY(!Util::find(static_cast<QAction *>(nullptr), bar.items));
    QVERIFY(!Util::find(static_cast<QWidget *>(nullptr), bar.items));
}

void tst_Util::findOrphanReturnsTheFirstWhoseActionDied()
{
    Bar bar;
    QVERIFY(!Util::findOrphan(bar.items));
    QAction first;
    auto *second = new QAction;
    auto *third = new QAction;
    bar.add(&first);
    const Item b = bar.add(second);
    const Item c = bar.add(third);
    QVERIFY(!Util::findOrphan(bar.items));
    // One that has only lost its widget is nobody's orphan.
    delete bar.items.first()->widget();
    QVERIFY(!Util::findOrphan(bar.items));
    delete third;
    QVERIFY(Util::findOrphan(bar.items) == c);
    delete second;
    QVERIFY(Util::findOrphan(bar.items) == b);
}

void tst_Util::itemsAreAppendedWithoutBefore()
{
    Bar bar;
    QAction first;
    QAction second;
    const Item a = bar.add(&first);
    const Item b = bar.add(&second);
    QCOMPARE(bar.items.size(), 2);
    QCOMPARE(bar.widgets(), (QList<QWidget *> { a->widget(), b->widget() }));
    // Nor is an item that has lost its action taken for the place of no action.
    bar.items.first()->release();
    QAction third;
    const Item c = bar.add(&third);
    QVERIFY(bar.items.last() == c);
}

void tst_Util::itemsAreInsertedInFrontOfBefore()
{
    Bar bar;
    QAction first;
    QAction second;
    QAction third;
    const Item a = bar.add(&first);
    const Item b = bar.add(&second, &first);
    const Item c = bar.add(&third, &first);
    QCOMPARE(bar.widgets(), (QList<QWidget *> { b->widget(), c->widget(), a->widget() }));
    QVERIFY(bar.items.at(0) == b && bar.items.at(1) == c && bar.items.at(2) == a);
}

void tst_Util::itemsAreInsertedInFrontOfTheFirstMatch()
{
    Bar bar;
    QAction twice;
    QAction second;
    QAction third;
    const Item a = bar.add(&twice);
    const Item b = bar.add(&second);
    const Item again = bar.add(&twice);
    const Item c = bar.add(&third, &twice);
    QCOMPARE(bar.widgets(),
             (QList<QWidget *> { c->widget(), a->widget(), b->widget(), again->widget() }));
}

void tst_Util::unknownBeforeAppends()
{
    Bar bar;
    QAction first;
    QAction second;
    QAction elsewhere;
    const Item a = bar.add(&first);
    const Item b = bar.add(&second, &elsewhere);
    QCOMPARE(bar.widgets(), (QList<QWidget *> { a->widget(), b->widget() }));
}

void tst_Util::customWidgetsTakeTheActionsVisibility()
{
    Bar bar;
    for (const bool visible : { true, false }) {
        auto *action = new QWidgetAction(&bar);
        action->setDefaultWidget(new QLabel);
        action->setVisible(visible);
        const Item item = bar.add(action);
        QCOMPARE(item->widget()->parentWidget(), &bar);
        QCOMPARE(item->widget()->isHidden(), !visible);
    }
}

void tst_Util::layoutItemsHaveNoStretch()
{
    Bar bar;
    QAction action;
    bar.add(&action);
    QCOMPARE(bar.layout->stretch(0), 0);
    QCOMPARE(bar.layout->itemAt(0)->alignment(), Qt::Alignment());
}

void tst_Util::nothingToAddIsIgnored()
{
    Bar bar;
    Util::addItem(Item(), bar.items, nullptr, bar.layout);
    QVERIFY(bar.items.isEmpty());
    QAction action;
    auto item = std::make_shared<KestWidgetItem>(&action, Qt::Horizontal, QSize(16, 16), &bar);
    Util::addItem(item, bar.items, nullptr, static_cast<QHBoxLayout *>(nullptr));
    QVERIFY(bar.items.isEmpty());
    delete item->widget();
    Util::addItem(item, bar.items, nullptr, bar.layout);
    QCOMPARE(bar.items.size(), 1);
    QCOMPARE(bar.layout->count(), 0);
}

// Whether its action is visible is nothing to a separator.
void tst_Util::separatorAppearsOnAShownBar()
{
    Bar bar;
    bar.show();
    for (const bool visible : { true, false }) {
        auto *action = new QAction(&bar);
        action->setSeparator(true);
        action->setVisible(visible);
        const Item item = bar.add(action);
        QTRY_VERIFY(item->widget()->isVisible());
    }
}

void tst_Util::addedWidgetMayMoveToAnotherLayout()
{
    Bar bar;
    auto *other = new QHBoxLayout;
    auto *inner = new QHBoxLayout;
    bar.layout->addLayout(inner);
    bar.layout->addLayout(other);
    QList<Item> items;
    bar.show();
    QAction action;
    const auto item =
        std::make_shared<KestWidgetItem>(&action, Qt::Horizontal, QSize(16, 16), &bar);
    Util::addItem(item, items, nullptr, inner);
    QVERIFY(item->widget()->isVisible());
    QCOMPARE(inner->count(), 1);
    other->addWidget(item->widget());
    QCOMPARE(inner->count(), 0);
    QCOMPARE(other->count(), 1);
}

void tst_Util::addedWidgetMayBeTakenAwayAtOnce()
{
    Bar bar;
    QWidget other;
    auto *label = new QLabel;
    auto *action = new QWidgetAction(&bar);
    action->setDefaultWidget(label);
    const OnEvent filter(label, QEvent::ParentChange, [&] { label->setParent(&other); });
    const Item item = bar.add(action);
    QCOMPARE(label->parentWidget(), &other);
    QCOMPARE(bar.layout->count(), 0);
    QVERIFY(label->isHidden());
    QVERIFY(bar.items.contains(item));
}

void tst_Util::addedItemMayBeTakenAtOnce()
{
    Bar bar;
    auto *label = new QLabel;
    auto *action = new QWidgetAction(&bar);
    action->setDefaultWidget(label);
    const OnEvent filter(label, QEvent::ParentChange, [&] { bar.items.clear(); });
    const Item item = bar.add(action);
    QCOMPARE(label->parentWidget(), &bar);
    QCOMPARE(bar.layout->count(), 0);
    QVERIFY(label->isHidden());
}

void tst_Util::takenItemLeavesTheOthers()
{
    Bar bar;
    QAction actions[4];
    for (QAction &action : actions)
        bar.add(&action);
    const QList<QWidget *> widgets = bar.widgets();
    // Where one has lost its widget, the others' places in the layout are not those in the list.
    delete widgets.at(0);
    QCOMPARE(bar.layout->count(), 3);
    const Item third = bar.items.at(2);
    Util::takeItem(third, bar.items, bar.layout);
    QCOMPARE(bar.widgets(), (QList<QWidget *> { widgets.at(1), widgets.at(3) }));
    QCOMPARE(bar.items.size(), 3);
    QVERIFY(!bar.items.contains(third));
    QCOMPARE(third->widget(), widgets.at(2)); // which is the item's to delete
}

void tst_Util::takenItemWithoutWidgetLeavesTheLayoutAsItIs()
{
    Bar bar;
    QAction action;
    const Item item = bar.add(&action);
    delete item->widget();
    bar.layout->addStretch();
    Util::takeItem(item, bar.items, bar.layout);
    QVERIFY(bar.items.isEmpty());
    QCOMPARE(bar.layout->count(), 1);
}

void tst_Util::iconPixmapHasTheFirstSize()
{
    QIcon icon;
    icon.addPixmap(plain(QSize(48, 40), Qt::red));
    icon.addPixmap(plain(QSize(16, 16), Qt::blue));
    const QSize first = icon.availableSizes().first();
    const QPixmap pixmap = Util::iconPixmap(icon, 100, QIcon::Off, 1.0);
    QCOMPARE(pixmap.size(), first);
    QCOMPARE(pixmap.devicePixelRatio(), 1.0);
}

void tst_Util::iconPixmapIsScaledDownOnly_data()
{
    QTest::addColumn<int>("height");
    QTest::newRow("higher") << 80;
    QTest::newRow("as high") << 40;
    QTest::newRow("lower") << 28;
    QTest::newRow("odd") << 13;
    QTest::newRow("a width just above a pixel") << 25;
    QTest::newRow("least") << 1;
}

void tst_Util::iconPixmapIsScaledDownOnly()
{
    QFETCH(int, height);
    QImage source(101, 40, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < source.height(); ++y) {
        for (int x = 0; x < source.width(); ++x)
            source.setPixel(x, y, qRgb(x * 2, y * 6, (x * y) % 256));
    }
    const QPixmap original = QPixmap::fromImage(source);
    const QPixmap expected = height < 40 ? scaledToHeight(original, height) : original;
    const QPixmap pixmap = Util::iconPixmap(QIcon(original), height, QIcon::Off, 1.0);
    QCOMPARE(pixmap.size(), expected.size());
    QCOMPARE(pixmap.toImage(), expected.toImage());
}

// Also run at 200 %.
void tst_Util::iconPixmapIsSharpAtHigherRatios()
{
    // The first size is the one that counts, drawn with the pixels of a larger one.
    QIcon icon(plain(QSize(32, 24), Qt::red));
    icon.addPixmap(plain(QSize(64, 48), Qt::blue));
    for (const qreal ratio : { 1.0, 1.5, 2.0 }) {
        const QPixmap pixmap = Util::iconPixmap(icon, 24, QIcon::Off, ratio);
        QCOMPARE(pixmap.devicePixelRatio(), ratio);
        QCOMPARE(pixmap.size(), QSize(32, 24) * ratio);
        QCOMPARE(middleOf(pixmap),
                 QColor(ratio * qApp->devicePixelRatio() > 1 ? Qt::blue : Qt::red));
        const QPixmap lower = Util::iconPixmap(icon, 12, QIcon::Off, ratio);
        QCOMPARE(lower.devicePixelRatio(), ratio);
        QCOMPARE(lower.size(), QSize(16, 12) * ratio);
    }
}

void tst_Util::iconPixmapIsThatOfTheState()
{
    QIcon icon(plain(QSize(20, 20), Qt::red));
    icon.addPixmap(plain(QSize(30, 10), Qt::blue), QIcon::Normal, QIcon::On);
    icon.addPixmap(plain(QSize(20, 20), Qt::green), QIcon::Disabled, QIcon::Off);
    icon.addPixmap(plain(QSize(30, 10), Qt::yellow), QIcon::Disabled, QIcon::On);
    const QPixmap off = Util::iconPixmap(icon, 100, QIcon::Off, 1.0);
    QCOMPARE(off.size(), QSize(20, 20));
    QCOMPARE(middleOf(off), QColor(Qt::red));
    const QPixmap on = Util::iconPixmap(icon, 100, QIcon::On, 1.0);
    QCOMPARE(on.size(), QSize(30, 10));
    QCOMPARE(middleOf(on), QColor(Qt::blue));
    // Of the same size, so that the size tells nothing.
    icon.addPixmap(plain(QSize(20, 20), Qt::cyan), QIcon::Normal, QIcon::On);
    QCOMPARE(middleOf(Util::iconPixmap(icon, 20, QIcon::Off, 1.0)), QColor(Qt::red));
}

void tst_Util::iconPixmapIsNullWithoutIconOrRoom()
{
    QVERIFY(Util::iconPixmap(QIcon(), 32, QIcon::Off, 1.0).isNull());
    const QPixmap source = plain(QSize(16, 16), Qt::red);
    QVERIFY(Util::iconPixmap(QIcon(source), 0, QIcon::Off, 1.0).isNull());
    QVERIFY(Util::iconPixmap(QIcon(source), -5, QIcon::Off, 1.0).isNull());
}

// Also run at 200 %.
void tst_Util::iconPixelsAreExact()
{
    const QPixmap source = plain(QSize(64, 64), Qt::red);
    for (const QSize size : { QSize(40, 40), QSize(64, 64), QSize(100, 90) }) {
        const QPixmap pixmap = Util::iconPixels(QIcon(source), size);
        QCOMPARE(pixmap.size(), size);
        QCOMPARE(pixmap.devicePixelRatio(), 1.0);
    }
}

void tst_Util::iconPixelsAreThoseOfAnUncheckedIcon()
{
    QIcon icon(plain(QSize(20, 20), Qt::red));
    icon.addPixmap(plain(QSize(20, 20), Qt::blue), QIcon::Normal, QIcon::On);
    icon.addPixmap(plain(QSize(20, 20), Qt::green), QIcon::Disabled, QIcon::Off);
    for (const int size : { 20, 10, 40 })
        QCOMPARE(middleOf(Util::iconPixels(icon, QSize(size, size))), QColor(Qt::red));
}

void tst_Util::hiddenWidgetIsDeletedLater()
{
    QWidget window;
    window.show();
    const QPointer<QWidget> widget(new QWidget(&window));
    widget->show();
    Util::hideAndDeleteLater(widget);
    QVERIFY(!widget.isNull());
    QVERIFY(widget->isHidden());
    QCOMPARE(widget->parentWidget(), &window);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(widget.isNull());
}

void tst_Util::nothingToHideIsIgnored()
{
    Util::hideAndDeleteLater(nullptr);
}

void tst_Util::widgetMayDieOfBeingHidden()
{
    class Fleeting : public QWidget
    {
    public:
        void setVisible(bool visible) override
        {
            QWidget::setVisible(visible);
            if (!visible)
                delete this;
        }
    };
    const QPointer<QWidget> widget(new Fleeting);
    Util::hideAndDeleteLater(widget);
    QVERIFY(widget.isNull());
}

QTEST_MAIN(tst_Util)
#include "tst_util.moc"
