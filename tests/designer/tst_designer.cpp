// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include <KestDialog.h>
#include <KestTitleBar.h>
#include <KestWindow.h>

#include <QtCore/QTimer>
#include <QtDesigner/QDesignerContainerExtension>
#include <QtDesigner/QDesignerFormEditorInterface>
#include <QtDesigner/QDesignerFormEditorPluginInterface>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>
#include <QtDesigner/QDesignerFormWindowManagerInterface>
#include <QtDesigner/QDesignerMetaDataBaseInterface>
#include <QtDesigner/QDesignerWidgetBoxInterface>
#include <QtDesigner/QExtensionManager>
#include <QtGui/QClipboard>
#include <QtTest/QtTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QUndoStack>

/*!
    Runs within Qt Designer, as a plugin of it, while windowform.ui is open.
*/
class tst_Designer : public QObject
{
    Q_OBJECT

public:
    explicit tst_Designer(QDesignerFormEditorInterface *core) : m_core(core) { }

private Q_SLOTS:
    void initTestCase();
    void openedFormIsWhatItsFileSays();
    void widgetBoxHasEveryClass();
    void widgetsAreMadeEditedSavedAndReadBack_data();
    void widgetsAreMadeEditedSavedAndReadBack();
    void windowsAreMadeEditedSavedAndReadBack_data();
    void windowsAreMadeEditedSavedAndReadBack();
    void windowsArePartOfTheirForm_data() { windowsAreMadeEditedSavedAndReadBack_data(); }
    void windowsArePartOfTheirForm();
    void centralWidgetsStay_data() { windowsAreMadeEditedSavedAndReadBack_data(); }
    void centralWidgetsStay();
    void barsOfAWindowAreSavedWithIt();
    void previewsAreWindows();
    void picture();
    void cleanup();

private:
    QDesignerFormEditorInterface *const m_core;
    QDesignerFormWindowInterface *m_opened = nullptr;
    // As Designer's own windows do, it holds forms.
    QWidget m_host;
    QList<QDesignerFormWindowInterface *> m_made;

    QDesignerFormWindowInterface *form(const QString &xml);
    QDesignerContainerExtension *container(QWidget *widget) const;
    QHash<QString, QString> boxed() const;
    QWidget *paste(QDesignerFormWindowInterface *form, const QString &xml, const QString &name);
};

namespace {

const char EmptyForm[] = "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" "
                         "name=\"Form\"><property name=\"geometry\"><rect><x>0</x><y>0</y>"
                         "<width>600</width><height>500</height></rect></property></widget></ui>";

struct Edit
{
    QString property;
    QVariant value;
};

} // namespace

Q_DECLARE_METATYPE(QVector<Edit>)

QDesignerFormWindowInterface *tst_Designer::form(const QString &xml)
{
    QDesignerFormWindowManagerInterface *const manager = m_core->formWindowManager();
    QDesignerFormWindowInterface *const made = manager->createFormWindow(&m_host);
    m_made.append(made);
    made->setFileName(m_opened->fileName()); // resources are looked for beside it
    if (!made->setContents(xml))
        return nullptr;
    const QSize size = made->mainContainer()->size();
    made->resize(size);
    m_host.resize(size);
    m_host.show();
    manager->setActiveFormWindow(made);
    return made;
}

QDesignerContainerExtension *tst_Designer::container(QWidget *widget) const
{
    return qt_extension<QDesignerContainerExtension *>(m_core->extensionManager(), widget);
}

// The XML of each of our classes in the widget box.
QHash<QString, QString> tst_Designer::boxed() const
{
    QHash<QString, QString> classes;
    const QDesignerWidgetBoxInterface *const box = m_core->widgetBox();
    for (int i = 0; i < box->categoryCount(); ++i) {
        const QDesignerWidgetBoxInterface::Category category = box->category(i);
        if (category.name() != QLatin1String("KestWidgets"))
            continue;
        for (int j = 0; j < category.widgetCount(); ++j)
            classes.insert(category.widget(j).name(), category.widget(j).domXml());
    }
    return classes;
}

// As a user who copied it from another form does.
QWidget *tst_Designer::paste(QDesignerFormWindowInterface *form, const QString &xml,
                             const QString &name)
{
    QString ui = xml;
    ui.replace(QLatin1String("<ui "), QLatin1String("<ui version=\"4.0\" "));
    ui.replace(QRegularExpression(QStringLiteral("<widget (.*)</widget>")),
               QStringLiteral("<widget class=\"QWidget\" name=\"__qt_fake_top_level\"><widget \\1"
                              "</widget></widget>"));
    QGuiApplication::clipboard()->setText(ui);
    m_core->formWindowManager()
        ->action(QDesignerFormWindowManagerInterface::PasteAction)
        ->trigger();
    return form->mainContainer()->findChild<QWidget *>(name);
}

void tst_Designer::initTestCase()
{
    QTRY_COMPARE(m_core->formWindowManager()->formWindowCount(), 1);
    m_opened = m_core->formWindowManager()->formWindow(0);
}

void tst_Designer::cleanup()
{
    const QList<QDesignerFormWindowInterface *> made = m_made;
    m_made.clear();
    for (QDesignerFormWindowInterface *form : made) {
        form->setDirty(false);
        m_core->formWindowManager()->removeFormWindow(form);
        delete form;
    }
    m_host.hide();
}

void tst_Designer::openedFormIsWhatItsFileSays()
{
    auto *window = qobject_cast<KestWindow *>(m_opened->mainContainer());
    QVERIFY(window);
    QCOMPARE(window->size(), QSize(700, 500));
    QCOMPARE(window->centralWidget()->objectName(), QStringLiteral("page"));
    QCOMPARE(window->menuBar()->objectName(), QStringLiteral("menus"));
    QVERIFY(!m_opened->isDirty());
    QVERIFY2(m_opened->checkContents().isEmpty(),
             qPrintable(m_opened->checkContents().join(QLatin1Char('\n'))));
}

void tst_Designer::widgetBoxHasEveryClass()
{
    QStringList classes = boxed().keys();
    classes.sort();
    QCOMPARE(
        classes,
        QStringList({ QStringLiteral("KestCircleProgressBar"), QStringLiteral("KestComboBox"),
                      QStringLiteral("KestDialog"), QStringLiteral("KestIPAddressEdit"),
                      QStringLiteral("KestNavigationBar"), QStringLiteral("KestStageProgressBar"),
                      QStringLiteral("KestSwitchButton"), QStringLiteral("KestWindow") }));
}

void tst_Designer::widgetsAreMadeEditedSavedAndReadBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QVector<Edit>>("edits");
    const auto edit = [](const char *property, const QVariant &value) {
        return Edit { QString::fromLatin1(property), value };
    };
    const QBrush brush(QColor(1, 2, 3));
    QTest::newRow("switch") << QStringLiteral("KestSwitchButton")
                            << QVector<Edit> { edit("checked", true),
                                               edit("uncheckedBackground", brush),
                                               edit("checkedHandleBorderColor", QColor(4, 5, 6)) };
    QTest::newRow("combo box") << QStringLiteral(
        "KestComboBox") << QVector<Edit> { edit("editable", true), edit("maxVisibleItems", 7) };
    QTest::newRow("address") << QStringLiteral("KestIPAddressEdit")
                             << QVector<Edit> { edit("readOnly", true),
                                                edit("ipAddress", QStringLiteral("10.0.0.7")) };
    QTest::newRow("stages") << QStringLiteral("KestStageProgressBar")
                            << QVector<Edit> { edit("stageCount", 3),
                                               edit("stageCircleRadius", 15),
                                               edit("textVisible", true),
                                               edit("texts",
                                                    QStringList { QStringLiteral("a"), QString(),
                                                                  QStringLiteral("c") }),
                                               edit("rateBackground", brush),
                                               edit("maximum", 60),
                                               edit("value", 40) };
    QTest::newRow("circle") << QStringLiteral("KestCircleProgressBar")
                            << QVector<Edit> {
                                   edit("value", 5),           edit("maximum", 9),
                                   edit("minimum", 1),         edit("barWidth", 4),
                                   edit("textVisible", false), edit("format", QStringLiteral("%v")),
                                   edit("barBrush", brush)
                               };
    QTest::newRow("navigation bar")
        << QStringLiteral("KestNavigationBar") << QVector<Edit> { edit("iconSize", QSize(20, 20)) };
}

void tst_Designer::widgetsAreMadeEditedSavedAndReadBack()
{
    QFETCH(const QString, name);
    QFETCH(const QVector<Edit>, edits);
    QDesignerFormWindowInterface *const first = form(QLatin1String(EmptyForm));
    QVERIFY(first);
    const QString objectName = QLatin1Char('k') + name.mid(1);
    QWidget *const widget = paste(first, boxed().value(name), objectName);
    QVERIFY(widget);
    QCOMPARE(QString::fromLatin1(widget->metaObject()->className()), name);
    QVERIFY(first->isManaged(widget));

    // Each by Designer's own command, which can be undone.
    for (const Edit &edit : edits) {
        const QByteArray property = edit.property.toLatin1();
        const QVariant before = widget->property(property);
        QVERIFY2(before.isValid() && before != edit.value, property);
        first->cursor()->setWidgetProperty(widget, edit.property, edit.value);
        QVERIFY2(widget->property(property) == edit.value, property);
        first->commandHistory()->undo();
        QVERIFY2(widget->property(property) == before, property);
        first->commandHistory()->redo();
    }

    const QString saved = first->contents();
    QVERIFY(saved.contains(QStringLiteral("<header>%1.h</header>").arg(name)));
    QDesignerFormWindowInterface *const second = form(saved);
    QVERIFY(second);
    const auto *read = second->mainContainer()->findChild<QWidget *>(objectName);
    QVERIFY(read);
    QCOMPARE(QString::fromLatin1(read->metaObject()->className()), name);
    for (const Edit &edit : edits) {
        const QByteArray property = edit.property.toLatin1();
        QVERIFY2(read->property(property) == edit.value, property);
    }
    QCOMPARE(read->geometry(), widget->geometry());
    QCOMPARE(second->contents(), saved);
}

void tst_Designer::windowsAreMadeEditedSavedAndReadBack_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("addPageMethod");
    QTest::newRow("window") << QStringLiteral("KestWindow") << QStringLiteral("addFormWidget");
    QTest::newRow("dialog") << QStringLiteral("KestDialog") << QStringLiteral("setCentralWidget");
}

namespace {

QWidget *centralWidget(QWidget *window)
{
    if (auto *main = qobject_cast<KestWindow *>(window))
        return main->centralWidget();
    return qobject_cast<KestDialog *>(window)->centralWidget();
}

QString asForm(QString xml)
{
    return xml.replace(QLatin1String("<ui "), QLatin1String("<ui version=\"4.0\" "));
}

} // namespace

void tst_Designer::windowsAreMadeEditedSavedAndReadBack()
{
    QFETCH(const QString, name);
    QFETCH(const QString, addPageMethod);
    QDesignerFormWindowInterface *const first = form(asForm(boxed().value(name)));
    QVERIFY(first);
    QWidget *const window = first->mainContainer();
    QCOMPARE(QString::fromLatin1(window->metaObject()->className()), name);
    QWidget *const page = centralWidget(window);
    QCOMPARE(page->objectName(), QStringLiteral("centralWidget"));
    QVERIFY(m_core->metaDataBase()->item(page));
    QCOMPARE(container(window)->count(), 1);
    QCOMPARE(container(window)->widget(container(window)->currentIndex()), page);

    // What is pasted goes onto the central widget.
    first->clearSelection();
    first->selectWidget(window);
    QWidget *const button = paste(
        first, QStringLiteral("<ui ><widget class=\"QPushButton\" name=\"ok\"></widget></ui>"),
        QStringLiteral("ok"));
    QVERIFY(button);
    QCOMPARE(button->parentWidget(), page);
    first->cursor()->setWidgetProperty(window, QStringLiteral("windowOpacity"), 0.5);
    first->cursor()->setWidgetProperty(window, QStringLiteral("geometry"), QRect(0, 0, 444, 333));
    QCOMPARE(window->size(), QSize(444, 333));

    const QString saved = first->contents();
    QVERIFY(saved.contains(QStringLiteral("<addpagemethod>%1</addpagemethod>").arg(addPageMethod)));
    QVERIFY(saved.contains(QStringLiteral("<container>1</container>")));
    // Nothing of what the class is made of.
    for (const char *part : { "KestTitleBar", "closeBtn", "gridLayout", "verticalLayout" })
        QVERIFY2(!saved.contains(QLatin1String(part)), part);

    QDesignerFormWindowInterface *const second = form(saved);
    QVERIFY(second);
    QWidget *const read = second->mainContainer();
    QCOMPARE(read->size(), QSize(444, 333));
    auto *readButton = read->findChild<QPushButton *>(QStringLiteral("ok"));
    QVERIFY(readButton);
    QCOMPARE(readButton->parentWidget(), centralWidget(read));
    QCOMPARE(second->contents(), saved);
}

void tst_Designer::windowsArePartOfTheirForm()
{
    QFETCH(const QString, name);
    QDesignerFormWindowInterface *const made = form(asForm(boxed().value(name)));
    QVERIFY(made);
    QWidget *const window = made->mainContainer();
    QVERIFY(!window->isWindow());
    QVERIFY(made->isAncestorOf(window));
    QTRY_VERIFY(window->isVisible());
    QCOMPARE(window->cursor().shape(), Qt::ArrowCursor);
    // The buttons have their glyphs, of which the form says nothing.
    auto *bar = window->findChild<KestTitleBar *>();
    QVERIFY(bar->isVisible());
    QVERIFY(bar->grab().toImage() != KestTitleBar(window).grab().toImage());
    QVERIFY(!made->contents().contains(QLatin1String("styleSheet")));
}

void tst_Designer::centralWidgetsStay()
{
    QFETCH(const QString, name);
    QDesignerFormWindowInterface *const made = form(asForm(boxed().value(name)));
    QVERIFY(made);
    QWidget *const page = centralWidget(made->mainContainer());
    const QString before = made->contents();
    made->clearSelection();
    made->selectWidget(page);
    QAction *const remove =
        m_core->formWindowManager()->action(QDesignerFormWindowManagerInterface::DeleteAction);
    remove->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(centralWidget(made->mainContainer()), page);
    QCOMPARE(made->contents(), before);
    QVERIFY(!container(made->mainContainer())->canAddWidget());
    QVERIFY(!container(made->mainContainer())->canRemove(0));
}

void tst_Designer::barsOfAWindowAreSavedWithIt()
{
    const QString saved = m_opened->contents();
    QDesignerFormWindowInterface *const second = form(saved);
    QVERIFY(second);
    auto *window = qobject_cast<KestWindow *>(second->mainContainer());
    QVERIFY(window);
    QCOMPARE(container(window)->count(), 4);
    QCOMPARE(container(window)->widget(0), window->centralWidget());
    QCOMPARE(window->centralWidget()->objectName(), QStringLiteral("page"));
    QCOMPARE(window->menuBar()->objectName(), QStringLiteral("menus"));
    // Which file the icon is of is Designer's to find out.
    const auto plain = [](QString xml) {
        return xml.remove(QLatin1String(" resource=\"tests.qrc\""));
    };
    QCOMPARE(plain(second->contents()), plain(saved));
}

void tst_Designer::previewsAreWindows()
{
    QVERIFY(form(asForm(boxed().value(QStringLiteral("KestWindow")))));
    QDesignerFormWindowManagerInterface *const manager = m_core->formWindowManager();
    manager->showPreview();
    KestWindow *preview = nullptr;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->isVisible() && !preview)
            preview = qobject_cast<KestWindow *>(window);
    }
    QVERIFY(preview);
    QCOMPARE(preview->size(), QSize(640, 480));
    QCOMPARE(preview->centralWidget()->objectName(), QStringLiteral("centralWidget"));
    manager->closeAllPreviews();
}

void tst_Designer::picture()
{
    const QString file = qEnvironmentVariable("KEST_DESIGNER_PICTURE");
    m_core->formWindowManager()->setActiveFormWindow(m_opened);
    QWidget *const designer = m_core->topLevel();
    QVERIFY(designer && designer->isVisible());
    QVERIFY(designer->isAncestorOf(m_opened));
    if (file.isEmpty())
        return;
    designer->showNormal();
    designer->resize(1500, 800); // pixels
    QTest::qWait(500); // for its layouts
    QVERIFY(designer->grab().save(file));
}

class TestPlugin : public QObject, public QDesignerFormEditorPluginInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.kestwidgets.tests.Designer")
    Q_INTERFACES(QDesignerFormEditorPluginInterface)

public:
    bool isInitialized() const override { return m_core; }
    QAction *action() const override { return nullptr; }
    QDesignerFormEditorInterface *core() const override { return m_core; }

    void initialize(QDesignerFormEditorInterface *core) override
    {
        m_core = core;
        QTimer::singleShot(0, this, [core] {
            tst_Designer test(core);
            QCoreApplication::exit(QTest::qExec(&test, { QStringLiteral("tst_designer") }));
        });
    }

private:
    QDesignerFormEditorInterface *m_core = nullptr;
};

#include "tst_designer.moc"
