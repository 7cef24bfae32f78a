// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef GALLERYUSER_H
#define GALLERYUSER_H

#include "GalleryWindow.h"

#include <QtCore/QFile>
#include <QtTest/QTest>

#include <memory>

/*! What the tests of the gallery's use share: each case has a window of its own, shown at 100 % in
    the default theme. */
class GalleryUser : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_window = std::make_unique<GalleryWindow>();
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    }

    void cleanup() { m_window.reset(); }

protected:
    int pageNamed(const char *title) const
    {
        for (int i = 0; i < m_window->pageCount(); ++i) {
            if (m_window->page(i)->windowTitle() == QLatin1String(title))
                return i;
        }
        qFatal("There is no page %s", title);
    }

    QWidget *show(const char *title)
    {
        const int index = pageNamed(title);
        m_window->setCurrentPage(index);
        return m_window->page(index);
    }

    static QString textOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly | QIODevice::Text) ? QString::fromUtf8(file.readAll())
                                                                : QString();
    }

    template <typename Widget>
    static Widget *named(const QWidget *in, const char *name)
    {
        return in->findChild<Widget *>(QString::fromLatin1(name));
    }

    static void press(QWidget *widget, Qt::Key key,
                      Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(widget, key, modifiers);
    }

    static void click(QWidget *widget) { QTest::mouseClick(widget, Qt::LeftButton); }

    std::unique_ptr<GalleryWindow> m_window;
};

#endif // GALLERYUSER_H
