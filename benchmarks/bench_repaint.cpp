// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestWindow.h"

#include <QtTest/QTest>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QWidget>

namespace {

const QSize WindowSize(1920, 1080); // pixels
const QRect ChildRect(900, 500, 40, 24);

class Child : public QWidget
{
public:
    using QWidget::QWidget;

    int paints = 0;

protected:
    void paintEvent(QPaintEvent *) override { ++paints; }
};

} // namespace

class bench_Repaint : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void smallChild_data();
    void smallChild();
};

void bench_Repaint::smallChild_data()
{
    QTest::addColumn<bool>("frameless");
    QTest::newRow("QMainWindow") << false;
    QTest::newRow("KestWindow") << true;
}

void bench_Repaint::smallChild()
{
    QFETCH(bool, frameless);
    QMainWindow plain;
    KestWindow own;
    auto *central = new QWidget;
    auto *child = new Child(central);
    child->setGeometry(ChildRect);
    QWidget &window = frameless ? static_cast<QWidget &>(own) : plain;
    if (frameless)
        own.setCentralWidget(central);
    else
        plain.setCentralWidget(central);
    window.resize(WindowSize);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));

    child->paints = 0;
    QBENCHMARK
    {
        child->repaint();
    }
    QVERIFY(child->paints > 0);
}

QTEST_MAIN(bench_Repaint)
#include "bench_repaint.moc"
