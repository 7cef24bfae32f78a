// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// Prints what programs and style sheets can name at run time: the classes' properties, signals,
// slots and enumerators, the names of the objects that they are made of, and the resources.

#include "KestApplication.h"
#include "KestCircleProgressBar.h"
#include "KestColor.h"
#include "KestComboBox.h"
#include "KestDialog.h"
#include "KestIPAddressEdit.h"
#include "KestLoadingDialog.h"
#include "KestMessageBox.h"
#include "KestNavigationBar.h"
#include "KestStageProgressBar.h"
#include "KestSwitchButton.h"
#include "KestTitleBar.h"
#include "KestWindow.h"

#include <QtCore/QDirIterator>
#include <QtCore/QMetaEnum>
#include <QtCore/QMetaMethod>
#include <QtCore/QMetaProperty>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

void print(const QByteArray &line)
{
    std::puts(line.constData());
}

void describe(const QMetaObject &meta)
{
    const QByteArray name = meta.className();
    print("class " + name + " : " + meta.superClass()->className());
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i) {
        const QMetaProperty property = meta.property(i);
        QByteArray line = name + " property " + property.typeName() + ' ' + property.name();
        const std::pair<bool, const char *> flags[] = {
            { property.isReadable(), " readable" },     { property.isWritable(), " writable" },
            { property.isResettable(), " resettable" }, { property.isDesignable(), " designable" },
            { property.isStored(), " stored" },         { property.isUser(), " user" }
        };
        for (const auto &flag : flags) {
            if (flag.first)
                line += flag.second;
        }
        if (property.hasNotifySignal())
            line += " notifies by " + property.notifySignal().methodSignature();
        print(line);
    }
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        static const char *const Access[] = { "private", "protected", "public" };
        static const char *const Kind[] = { "method", "signal", "slot", "constructor" };
        const QMetaMethod method = meta.method(i);
        print(name + ' ' + Access[method.access()] + ' ' + Kind[method.methodType()] + ' '
              + method.typeName() + ' ' + method.methodSignature());
    }
    for (int i = meta.enumeratorOffset(); i < meta.enumeratorCount(); ++i) {
        const QMetaEnum enumerator = meta.enumerator(i);
        for (int key = 0; key < enumerator.keyCount(); ++key) {
            print(name + (enumerator.isFlag() ? " flag " : " enum ") + enumerator.name() + ' '
                  + enumerator.key(key) + " = " + QByteArray::number(enumerator.value(key)));
        }
    }
}

// The objects of \a widget that have names, with the public class that each is at least.
void describeParts(const char *name, QWidget &widget)
{
    QList<QByteArray> lines;
    const QObjectList parts = widget.findChildren<QObject *>();
    for (const QObject *part : parts) {
        // Qt's own parts have names of Qt's.
        if (part->objectName().isEmpty() || part->objectName().startsWith(QLatin1String("qt_")))
            continue;
        const QMetaObject *meta = part->metaObject();
        lines.append(QByteArray(name) + " part " + part->objectName().toUtf8() + " : "
                     + meta->className());
    }
    std::sort(lines.begin(), lines.end());
    for (const QByteArray &line : qAsConst(lines))
        print(line);
}

} // namespace

int main(int argc, char *argv[])
{
    KestApplication app(argc, argv);

    for (const QMetaObject *meta :
         { &KestApplication::staticMetaObject, &KestCircleProgressBar::staticMetaObject,
           &KestColor::staticMetaObject, &KestComboBox::staticMetaObject,
           &KestDialog::staticMetaObject, &KestIPAddressEdit::staticMetaObject,
           &KestLoadingDialog::staticMetaObject, &KestMessageBox::staticMetaObject,
           &KestNavigationBar::staticMetaObject, &KestStageProgressBar::staticMetaObject,
           &KestSwitchButton::staticMetaObject, &KestTitleBar::staticMetaObject,
           &KestWindow::staticMetaObject })
        describe(*meta);

    KestWindow window;
    window.titleBar();
    window.navigationBar();
    window.menuBar();
    window.statusBar();
    describeParts("KestWindow", window);
    KestDialog dialog;
    describeParts("KestDialog", dialog);
    KestMessageBox box;
    box.setText(QStringLiteral("Text"));
    box.setStandardButtons(KestMessageBox::Ok | KestMessageBox::Cancel);
    describeParts("KestMessageBox", box);
    KestLoadingDialog loading(&window);
    describeParts("KestLoadingDialog", loading);

    QList<QByteArray> resources;
    QDirIterator it(QStringLiteral(":/"), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (!path.startsWith(QLatin1String(":/qt-project.org")))
            resources.append("resource " + path.toUtf8());
    }
    std::sort(resources.begin(), resources.end());
    for (const QByteArray &line : qAsConst(resources))
        print(line);
    return 0;
}
