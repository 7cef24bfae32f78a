// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "FormChecks.h"

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QPluginLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <QtUiTools/QUiLoader>

class tst_UiLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void widgetsAreFoundByTheLibraryPaths();
    void everyClassIsDescribed_data();
    void everyClassIsDescribed();
    void newWidgetsAreOfTheirClassAndSize_data() { everyClassIsDescribed_data(); }
    void newWidgetsAreOfTheirClassAndSize();
    void windowIsWhatItsFormSays();
    void dialogIsWhatItsFormSays();
    void formsGoIntoOtherWidgets();

private:
    QStringList m_classes;
    QDesignerCustomWidgetCollectionInterface *m_plugin = nullptr;

    QDesignerCustomWidgetInterface *described(const QString &name) const;
};

namespace {

QWidget *load(const char *name, QWidget *parent = nullptr)
{
    QFile file(QStringLiteral(":/forms/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        return nullptr;
    return QUiLoader().load(&file, parent);
}

} // namespace

void tst_UiLoader::initTestCase()
{
    QCoreApplication::addLibraryPath(QStringLiteral(KEST_PLUGINS));
    m_classes = QStringList { QStringLiteral("KestCircleProgressBar"),
                              QStringLiteral("KestComboBox"),
                              QStringLiteral("KestDialog"),
                              QStringLiteral("KestIPAddressEdit"),
                              QStringLiteral("KestNavigationBar"),
                              QStringLiteral("KestStageProgressBar"),
                              QStringLiteral("KestSwitchButton"),
                              QStringLiteral("KestWindow") };
    const QDir folder(QStringLiteral(KEST_PLUGINS "/designer"));
    const QStringList files = folder.entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    QPluginLoader loader(folder.filePath(files.constFirst()));
    m_plugin = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
    QVERIFY2(m_plugin, qPrintable(loader.errorString()));
}

QDesignerCustomWidgetInterface *tst_UiLoader::described(const QString &name) const
{
    const auto widgets = m_plugin->customWidgets();
    for (QDesignerCustomWidgetInterface *widget : widgets) {
        if (widget->name() == name)
            return widget;
    }
    return nullptr;
}

void tst_UiLoader::widgetsAreFoundByTheLibraryPaths()
{
    QStringList found;
    const QStringList available = QUiLoader().availableWidgets();
    for (const QString &name : available) {
        if (name.startsWith(QLatin1String("Kest")))
            found.append(name);
    }
    found.sort();
    QCOMPARE(found, m_classes);
    QCOMPARE(m_plugin->customWidgets().size(), m_classes.size());
}

void tst_UiLoader::everyClassIsDescribed_data()
{
    QTest::addColumn<QString>("name");
    for (const QString &name : qAsConst(m_classes))
        QTest::newRow(qPrintable(name)) << name;
}

void tst_UiLoader::everyClassIsDescribed()
{
    QFETCH(const QString, name);
    const QDesignerCustomWidgetInterface *const widget = described(name);
    QVERIFY(widget);
    QCOMPARE(widget->group(), QStringLiteral("KestWidgets"));
    QVERIFY(QFile::exists(QStringLiteral(KEST_INCLUDE "/") + widget->includeFile()));
    const bool isWindow =
        name == QLatin1String("KestWindow") || name == QLatin1String("KestDialog");
    QCOMPARE(widget->isContainer(), isWindow);

    // No two are the same.
    const QImage icon = widget->icon().pixmap(48).toImage();
    QCOMPARE(icon.size(), QSize(48, 48));
    QVERIFY(!widget->toolTip().isEmpty());
    QVERIFY(widget->whatsThis().size() > widget->toolTip().size());
    const auto widgets = m_plugin->customWidgets();
    for (const QDesignerCustomWidgetInterface *other : widgets) {
        if (other == widget)
            continue;
        QVERIFY(other->icon().pixmap(48).toImage() != icon);
        QVERIFY(other->toolTip() != widget->toolTip());
        QVERIFY(other->whatsThis() != widget->whatsThis());
    }
}

void tst_UiLoader::newWidgetsAreOfTheirClassAndSize()
{
    QFETCH(const QString, name);
    QByteArray xml = described(name)->domXml().toUtf8();
    xml.replace("<ui ", "<ui version=\"4.0\" ");
    QBuffer buffer(&xml);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    const QScopedPointer<QWidget> widget(QUiLoader().load(&buffer));
    QVERIFY(widget);
    QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), name);
    QCOMPARE(widget->objectName(), QLatin1Char('k') + name.mid(1));
    const QSize hint = widget->sizeHint();
    QVERIFY2(widget->width() >= hint.width(), QByteArray::number(hint.width()));
    QVERIFY2(widget->height() >= hint.height(), QByteArray::number(hint.height()));
    QVERIFY(widget->height() <= 480);
    if (const auto *window = qobject_cast<KestWindow *>(widget.data()))
        QCOMPARE(window->centralWidget()->objectName(), QStringLiteral("centralWidget"));
    if (const auto *dialog = qobject_cast<KestDialog *>(widget.data()))
        QCOMPARE(dialog->centralWidget()->objectName(), QStringLiteral("centralWidget"));
}

void tst_UiLoader::windowIsWhatItsFormSays()
{
    const QScopedPointer<QWidget> form(load("windowform.ui"));
    checkWindowForm(qobject_cast<KestWindow *>(form.data()));
}

void tst_UiLoader::dialogIsWhatItsFormSays()
{
    const QScopedPointer<QWidget> form(load("dialogform.ui"));
    checkDialogForm(qobject_cast<KestDialog *>(form.data()));
}

// A form that is loaded with a parent is that one's window, as a QMainWindow is.
void tst_UiLoader::formsGoIntoOtherWidgets()
{
    QWidget parent;
    auto *window = qobject_cast<KestWindow *>(load("windowform.ui", &parent));
    QVERIFY(window);
    QCOMPARE(window->parentWidget(), &parent);
    checkWindowForm(window);
}

QTEST_MAIN(tst_UiLoader)
#include "tst_uiloader.moc"
