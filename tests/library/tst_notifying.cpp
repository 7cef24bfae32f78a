// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "KestCircleProgressBar.h"
#include "KestIPAddressEdit.h"
#include "KestNavigationBar.h"
#include "KestStageProgressBar.h"
#include "KestTitleBar.h"

#include <QtCore/QMetaProperty>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <memory>

// Whoever watches a property through the meta-object, as bindings and editors of properties do.
class tst_Notifying : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changedPropertyNotifies_data();
    void changedPropertyNotifies();
    void propertyHasItsNewValueWhenItNotifies_data() { changedPropertyNotifies_data(); }
    void propertyHasItsNewValueWhenItNotifies();
    void typedAddressNotifies();
    void otherPropertiesPromiseNoSignal();
};

// Reads a property when it is told to.
class Reader : public QObject
{
    Q_OBJECT

public:
    Reader(const QObject *object, const QByteArray &name) : m_object(object), m_name(name) { }

    QVariant seen;

public Q_SLOTS:
    void read() { seen = m_object->property(m_name.constData()); }

private:
    const QObject *m_object;
    const QByteArray m_name;
};

using Maker = QWidget *(*)(QWidget *);
Q_DECLARE_METATYPE(Maker)

namespace {

template <class Widget>
QWidget *make(QWidget *parent)
{
    return new Widget(parent);
}

QMetaProperty propertyOf(const QObject *object, const QByteArray &name)
{
    return object->metaObject()->property(object->metaObject()->indexOfProperty(name));
}

} // namespace

void tst_Notifying::changedPropertyNotifies_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("signature");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("address") << Maker(make<KestIPAddressEdit>) << QByteArray("ipAddress")
                             << QByteArray("editChanged()") << QVariant("10.1.2.3");
    QTest::newRow("icons of a title bar")
        << Maker(make<KestTitleBar>) << QByteArray("actionIconSize")
        << QByteArray("actionIconSizeChanged(QSize)") << QVariant(QSize(21, 22));
    QTest::newRow("icons of a navigation bar")
        << Maker(make<KestNavigationBar>) << QByteArray("iconSize")
        << QByteArray("iconSizeChanged(QSize)") << QVariant(QSize(21, 22));
    QTest::newRow("ring") << Maker(make<KestCircleProgressBar>) << QByteArray("value")
                          << QByteArray("valueChanged(int)") << QVariant(7);
    QTest::newRow("stages") << Maker(make<KestStageProgressBar>) << QByteArray("value")
                            << QByteArray("valueChanged(int)") << QVariant(7);
}

void tst_Notifying::changedPropertyNotifies()
{
    QFETCH(Maker, maker);
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, signature);
    QFETCH(QVariant, value);

    QWidget parent;
    QWidget *widget = maker(&parent);
    const QMetaProperty property = propertyOf(widget, name);
    QVERIFY(property.hasNotifySignal());
    QCOMPARE(property.notifySignal().methodSignature(), signature);
    QSignalSpy spy(widget, property.notifySignal());
    QVERIFY(spy.isValid());
    QVERIFY(property.read(widget) != value);
    QVERIFY(property.write(widget, value));
    QVERIFY(!spy.isEmpty());
    QCOMPARE(property.read(widget), value);
    if (property.notifySignal().parameterCount() == 1)
        QCOMPARE(spy.last().first(), value);
}

void tst_Notifying::propertyHasItsNewValueWhenItNotifies()
{
    QFETCH(Maker, maker);
    QFETCH(QByteArray, name);
    QFETCH(QVariant, value);

    QWidget parent;
    QWidget *widget = maker(&parent);
    Reader reader(widget, name);
    const QMetaObject &meta = Reader::staticMetaObject;
    QVERIFY(connect(widget, propertyOf(widget, name).notifySignal(), &reader,
                    meta.method(meta.indexOfSlot("read()"))));
    widget->setProperty(name.constData(), value);
    QCOMPARE(reader.seen, value);
}

void tst_Notifying::typedAddressNotifies()
{
    KestIPAddressEdit edit;
    const QMetaProperty property = propertyOf(&edit, "ipAddress");
    QSignalSpy spy(&edit, property.notifySignal());
    QTest::keyClick(&edit, Qt::Key_7);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(property.read(&edit), QVariant("7.0.0.0"));
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QCOMPARE(spy.size(), 2);
    QCOMPARE(property.read(&edit), QVariant("0.0.0.0"));
}

void tst_Notifying::otherPropertiesPromiseNoSignal()
{
    // The title bar's own icon size can be set without its signal.
    QWidget parent;
    KestTitleBar bar(&parent);
    QSignalSpy spy(&bar, &KestTitleBar::iconSizeChanged);
    bar.setIconSize(QSize(9, 9));
    QVERIFY(spy.isEmpty());
    QVERIFY(!propertyOf(&bar, "iconSize").hasNotifySignal());
}

QTEST_MAIN(tst_Notifying)
#include "tst_notifying.moc"
