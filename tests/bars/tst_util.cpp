// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Util.h"

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

} // namespace

class tst_Util : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findReturnsTheFirstMatch();
    void findReturnsAnEmptyPointerOtherwise();
    void findFindsNothingForNull();
    void itemsAreAppendedWithoutBefore();
    void itemsAreInsertedInFrontOfBefore();
    void unknownBeforeAppends();
    void customWidgetsTakeTheActionsVisibility();
    void layoutItemsHaveNoStretch();
    void nothingToAddIsIgnored();

    void iconPixmapHasTheFirstSize();
    void iconPixmapIsScaledDownOnly_data();
    void iconPixmapIsScaledDownOnly();
    void iconPixmapIsSharpAtHigherRatios();
    void iconPixmapIsNullWithoutIconOrRoom();
    void iconPixelsAreExact();

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

void tst_Util::iconPixmapHasTheFirstSize()
{
    QIcon icon;
    QPixmap large(48, 40);
    large.fill(Qt::red);
    QPixmap small(16, 16);
    small.fill(Qt::blue);
    icon.addPixmap(large);
    icon.addPixmap(small);
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
    const QPixmap expected =
        height < 40 ? original.scaledToHeight(height, Qt::SmoothTransformation) : original;
    const QPixmap pixmap = Util::iconPixmap(QIcon(original), height, QIcon::Off, 1.0);
    QCOMPARE(pixmap.size(), expected.size());
    QCOMPARE(pixmap.toImage(), expected.toImage());
}

void tst_Util::iconPixmapIsSharpAtHigherRatios()
{
    QPixmap source(64, 64);
    source.fill(Qt::red);
    const QIcon icon(source);
    for (const qreal ratio : { 1.5, 2.0 }) {
        const QPixmap pixmap = Util::iconPixmap(icon, 32, QIcon::Off, ratio);
        QCOMPARE(pixmap.devicePixelRatio(), ratio);
        QCOMPARE(pixmap.size(), QSize(32, 32) * ratio);
    }
}

void tst_Util::iconPixmapIsNullWithoutIconOrRoom()
{
    QVERIFY(Util::iconPixmap(QIcon(), 32, QIcon::Off, 1.0).isNull());
    QPixmap source(16, 16);
    source.fill(Qt::red);
    QVERIFY(Util::iconPixmap(QIcon(source), 0, QIcon::Off, 1.0).isNull());
    QVERIFY(Util::iconPixmap(QIcon(source), -5, QIcon::Off, 1.0).isNull());
}

void tst_Util::iconPixelsAreExact()
{
    QPixmap source(64, 64);
    source.fill(Qt::red);
    for (const QSize size : { QSize(40, 40), QSize(64, 64), QSize(100, 90) }) {
        const QPixmap pixmap = Util::iconPixels(QIcon(source), size);
        QCOMPARE(pixmap.size(), size);
        QCOMPARE(pixmap.devicePixelRatio(), 1.0);
    }
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
