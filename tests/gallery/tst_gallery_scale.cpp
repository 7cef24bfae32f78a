// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// What the gallery shows at other scales, in each of its themes: as large as the texts around it,
// and whole.

#include "GalleryUser.h"
#include "KestCircleProgressBar.h"
#include "KestStageProgressBar.h"
#include "pages/PropertyForm.h"

#include <QtGui/QPixmap>
#include <QtTest/QTest>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

namespace {

const QSize PlainSize(1440, 800); // of the window at 100 %

QList<KestStageProgressBar *> visibleStages(const QWidget *page)
{
    QList<KestStageProgressBar *> visible;
    const QList<KestStageProgressBar *> all = page->findChildren<KestStageProgressBar *>();
    for (KestStageProgressBar *bar : all) {
        if (bar->isVisible())
            visible.append(bar);
    }
    return visible;
}

// Whether one of the outermost columns of a widget is painted with something.
bool reachesItsSides(QWidget *widget)
{
    const QImage image = widget->grab().toImage();
    for (const int x : { 0, image.width() - 1 }) {
        for (int y = 1; y < image.height(); ++y) {
            if (image.pixel(x, y) != image.pixel(x, 0))
                return true;
        }
    }
    return false;
}

// How much room the two captions that are the nearest to each other have between them.
int leastGap(const KestStageProgressBar *bar)
{
    const QFontMetrics metrics = bar->fontMetrics();
    const QStringList texts = bar->texts();
    const auto half = [&](int i) { return metrics.boundingRect(texts.at(i)).width() / 2; };
    const int outside = qMax(bar->stageCircleRadius(), qMax(half(0), half(texts.size() - 1)));
    const int way = (bar->width() - 2 * outside) / (texts.size() - 1);
    int least = way;
    for (int i = 1; i < texts.size(); ++i)
        least = qMin(least, way - half(i - 1) - half(i));
    return least;
}

QPixmap pictureOf(const QLabel *label)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return label->pixmap(Qt::ReturnByValue);
#else
    return label->pixmap();
#endif
}

} // namespace

class tst_Gallery_Scale : public GalleryUser
{
    Q_OBJECT

private Q_SLOTS:
    void samplesFollowTheScale_data() { addLooks(); }
    void samplesFollowTheScale();
    void stepsCanBeRead_data() { addLooks(); }
    void stepsCanBeRead();
    void samplesStandInTheMiddleOfTheirCards();
    void scalesDoNotAddUp();
    void chosenSizeIsScaledFromWhatItIs();
    void formsShowTheSizesInUse();
    void everyPropertyIsInItsFormOnce();
    void captionsAreEditedAsAList();
    void swatchesFillTheirIcons();

private:
    void addLooks();
    void wear();
};

void tst_Gallery_Scale::addLooks()
{
    QTest::addColumn<int>("theme");
    QTest::addColumn<int>("percent");
    // Each theme, each scale, and of the largest type all of them.
    QTest::newRow("default at 100") << 0 << 100;
    QTest::newRow("default at 200") << 0 << 200;
    QTest::newRow("tool at 150") << 1 << 150;
    for (const int percent : { 100, 150, 200 })
        QTest::addRow("kest blue at %d", percent) << 2 << percent;
}

void tst_Gallery_Scale::wear()
{
    QFETCH(int, theme);
    QFETCH(int, percent);
    m_window->setTheme(theme);
    m_window->setScale(percent);
    m_window->resize(PlainSize * percent / 100);
}

void tst_Gallery_Scale::samplesFollowTheScale()
{
    QFETCH(int, percent);
    wear();
    const QWidget *const page = show("Overview");
    QCoreApplication::processEvents();
    QList<QSize> pictures;
    const QList<QLabel *> labels = page->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        const QPixmap picture = pictureOf(label);
        if (!picture.isNull())
            pictures.append(picture.size() / picture.devicePixelRatio());
    }
    const double rate = percent / 100.0;
    QCOMPARE(pictures.size(), 2);
    QVERIFY(pictures.contains(QSize(56, 56) * rate)); // the logo
    const int swatch = qRound(15 * rate);
    QVERIFY(pictures.contains(QSize(5 * swatch, 4 * swatch)));
    const auto *const circle = page->findChild<KestCircleProgressBar *>();
    QCOMPARE(circle->barWidth(), qRound(10 * rate));
    QVERIFY(circle->width() >= 96 * rate && circle->height() >= 96 * rate);
    QCOMPARE(page->findChild<KestStageProgressBar *>()->stageCircleRadius(), qRound(10 * rate));
}

void tst_Gallery_Scale::stepsCanBeRead()
{
    wear();
    int bars = 0;
    int captioned = 0;
    for (const char *title : { "Overview", "Long task", "Stage progress bar", "Accessibility" }) {
        const QWidget *const page = show(title);
        QCoreApplication::processEvents();
        const QList<KestStageProgressBar *> all = visibleStages(page);
        for (KestStageProgressBar *bar : all) {
            ++bars;
            const QRect number = bar->fontMetrics().boundingRect(QLatin1Char('4'));
            QVERIFY(number.height() < 2 * bar->stageCircleRadius());
            if (bar->orientation() == Qt::Horizontal && bar->textVisible()) {
                ++captioned;
                QVERIFY2(!reachesItsSides(bar), title);
                QVERIFY2(leastGap(bar) >= 4, qPrintable(QString::number(leastGap(bar))));
            }
        }
    }
    QCOMPARE(bars, 10);
    QCOMPARE(captioned, 4);
}

void tst_Gallery_Scale::samplesStandInTheMiddleOfTheirCards()
{
    // Between the card's top and the caption below them.
    const QWidget *const page = show("Overview");
    QCoreApplication::processEvents();
    const QList<QFrame *> cards = page->findChildren<QFrame *>(QStringLiteral("card"));
    QCOMPARE(cards.size(), 9);
    for (const QFrame *card : cards) {
        QLayout *const column = card->layout();
        const QRect room = column->itemAt(0)->geometry();
        const QRect sample = column->itemAt(0)->layout()->itemAt(0)->geometry();
        QVERIFY(qAbs(sample.center().y() - room.center().y()) <= 1);
        // The room is the same on all cards.
        QCOMPARE(column->itemAt(1)->geometry().top() - room.bottom(), column->spacing() + 1);
        QVERIFY(column->itemAt(1)->geometry().height() < room.height());
    }
}

void tst_Gallery_Scale::scalesDoNotAddUp()
{
    const auto sizes = [this] {
        QList<int> all;
        for (int i = 0; i < m_window->pageCount(); ++i) {
            const QList<QLayout *> layouts = m_window->page(i)->findChildren<QLayout *>();
            for (const QLayout *layout : layouts)
                all.append(layout->spacing());
            const auto circles = m_window->page(i)->findChildren<KestCircleProgressBar *>();
            for (const KestCircleProgressBar *bar : circles)
                all << bar->barWidth() << bar->minimumWidth();
            const auto stages = m_window->page(i)->findChildren<KestStageProgressBar *>();
            for (const KestStageProgressBar *bar : stages)
                all.append(bar->stageCircleRadius());
        }
        return all;
    };
    const QList<int> before = sizes();
    for (const int percent : { 125, 175, 150, 200, 125, 100 })
        m_window->setScale(percent);
    QCOMPARE(sizes(), before);
    m_window->setScale(200);
    const QList<int> twice = sizes();
    for (int i = 0; i < before.size(); ++i)
        QCOMPARE(twice.at(i), before.at(i) > 0 ? 2 * before.at(i) : before.at(i));
}

void tst_Gallery_Scale::chosenSizeIsScaledFromWhatItIs()
{
    m_window->setScale(200);
    const QWidget *const page = show("Stage progress bar");
    auto *const radius = named<QSpinBox>(page, "stageCircleRadius");
    radius->setValue(30);
    m_window->setScale(100);
    QCOMPARE(radius->value(), 15);
    m_window->setScale(150);
    QCOMPARE(radius->value(), 23); // 22.5
    m_window->setScale(100);
    QCOMPARE(radius->value(), 15);
}

void tst_Gallery_Scale::formsShowTheSizesInUse()
{
    m_window->setScale(200);
    QCOMPARE(named<QSpinBox>(show("Stage progress bar"), "stageCircleRadius")->value(), 20);
    QCOMPARE(named<QSpinBox>(show("Circle progress bar"), "barWidth")->value(), 20);
}

void tst_Gallery_Scale::everyPropertyIsInItsFormOnce()
{
    for (const char *title : { "Stage progress bar", "Circle progress bar", "Switch button" }) {
        const auto *const form = show(title)->findChild<PropertyForm *>();
        auto *const layout = static_cast<QFormLayout *>(form->layout());
        QStringList labels;
        for (int row = 0; row < layout->rowCount(); ++row) {
            const QWidget *const label = layout->itemAt(row, QFormLayout::LabelRole)->widget();
            labels.append(static_cast<const QLabel *>(label)->text());
        }
        QVERIFY(labels.size() > 8);
        QCOMPARE(labels.removeDuplicates(), 0);
    }
}

void tst_Gallery_Scale::captionsAreEditedAsAList()
{
    const QWidget *const page = show("Stage progress bar");
    const auto *const bar = page->findChild<KestStageProgressBar *>();
    auto *const line = named<QLineEdit>(page, "texts");
    QVERIFY(line);
    QCOMPARE(line->text(), QStringLiteral("Cart, Ship, Pay, Check, Done"));
    QCOMPARE(line->cursorPosition(), 0); // its begin is seen
    line->setFocus();
    line->selectAll();
    QTest::keyClicks(line, QStringLiteral("One,  Two, Three"));
    QCOMPARE(
        bar->texts().mid(0, 3),
        QStringList({ QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three") }));
}

void tst_Gallery_Scale::swatchesFillTheirIcons()
{
    m_window->setScale(200);
    const QWidget *const page = show("Circle progress bar");
    int swatches = 0;
    const QList<QPushButton *> buttons = page->findChildren<QPushButton *>();
    for (const QPushButton *button : buttons) {
        if (!button->icon().isNull()) {
            ++swatches;
            QCOMPARE(button->iconSize(), QSize(56, 28));
            QCOMPARE(button->icon().actualSize(button->iconSize()), button->iconSize());
        }
    }
    QCOMPARE(swatches, 2);
}

QTEST_MAIN(tst_Gallery_Scale)
#include "tst_gallery_scale.moc"
