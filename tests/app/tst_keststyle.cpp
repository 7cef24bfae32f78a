// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestStyle.h"

#include <QtTest/QTest>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QWidget>

namespace {

// Answers with a pixmap of its own and notes what it was asked.
class RecordingStyle : public QProxyStyle
{
public:
    QPixmap standardPixmap(StandardPixmap standardPixmap, const QStyleOption *option,
                           const QWidget *widget) const override
    {
        pixmap = standardPixmap;
        lastOption = option;
        lastWidget = widget;
        QPixmap answer(3, 5);
        answer.fill(Qt::magenta);
        return answer;
    }

    mutable StandardPixmap pixmap = SP_CustomBase;
    mutable const QStyleOption *lastOption = nullptr;
    mutable const QWidget *lastWidget = nullptr;
};

} // namespace

class tst_KestStyle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standardPixmapsAreTheBaseStyles();
    void withoutBaseItWrapsTheDefaultStyle();
};

void tst_KestStyle::standardPixmapsAreTheBaseStyles()
{
    auto *base = new RecordingStyle;
    const KestStyle style(base);
    const QStyleOption option;
    const QWidget widget;

    const QPixmap pixmap = style.standardPixmap(QStyle::SP_DirIcon, &option, &widget);

    QCOMPARE(base->pixmap, QStyle::SP_DirIcon);
    QCOMPARE(base->lastOption, &option);
    QCOMPARE(base->lastWidget, &widget);
    QCOMPARE(pixmap.size(), QSize(3, 5));
    QCOMPARE(pixmap.toImage().pixelColor(1, 1), QColor(Qt::magenta));
}

void tst_KestStyle::withoutBaseItWrapsTheDefaultStyle()
{
    const KestStyle style;
    QVERIFY(style.baseStyle());
    const QScopedPointer<QStyle> fusion(QStyleFactory::create(QStringLiteral("fusion")));
    QApplication::setStyle(QStringLiteral("fusion"));
    const QPixmap expected = fusion->standardPixmap(QStyle::SP_MessageBoxWarning, nullptr, nullptr);
    const KestStyle over(QStyleFactory::create(QStringLiteral("fusion")));
    QCOMPARE(over.standardPixmap(QStyle::SP_MessageBoxWarning, nullptr).toImage(),
             expected.toImage());
    QVERIFY(!expected.isNull());
}

QTEST_MAIN(tst_KestStyle)
#include "tst_keststyle.moc"
