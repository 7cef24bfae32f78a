// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#include "Screenshots.h"

#include "ContactSheet.h"
#include "GalleryWindow.h"
#include "KestCircleProgressBar.h"
#include "KestLoadingDialog.h"
#include "pages/DialogsPage.h"
#include "pages/MessageBoxPage.h"

#include <QtCore/QDir>
#include <QtCore/QEventLoop>
#include <QtCore/QScopedPointer>
#include <QtCore/QTimer>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialog>

namespace {

const int SettleMs = 150; // long enough for layouts and the short animations

void settle()
{
    QEventLoop loop;
    QTimer::singleShot(SettleMs, &loop, &QEventLoop::quit);
    loop.exec();
}

// Where their arcs are depends on the time: in pictures they stand still.
void holdBusyBars(const QWidget *widget)
{
    const QList<KestCircleProgressBar *> bars = widget->findChildren<KestCircleProgressBar *>();
    for (KestCircleProgressBar *bar : bars) {
        if (bar->minimum() == bar->maximum()) {
            bar->setRange(0, 4);
            bar->setValue(1);
            bar->setTextVisible(false);
        }
    }
}

class Writer
{
public:
    explicit Writer(const QString &folder) : m_folder(folder)
    {
        m_ok = m_folder.mkpath(QStringLiteral("."));
    }

    void write(QWidget *widget, const QString &name)
    {
        holdBusyBars(widget);
        settle();
        write(widget->grab().toImage(), name);
    }

    void write(const QImage &picture, const QString &name)
    {
        QString file = name.toLower();
        file.replace(QLatin1Char(' '), QLatin1Char('-'));
        const QString path = m_folder.filePath(file + QStringLiteral(".png"));
        const bool written = picture.save(path);
        if (!written)
            qWarning("gallery: cannot write %s", qPrintable(path));
        m_ok = m_ok && written;
    }

    bool ok() const { return m_ok; }

private:
    QDir m_folder;
    bool m_ok;
};

void writePages(Writer *writer, GalleryWindow *window)
{
    settle(); // the window has just begun
    for (int i = 0; i < window->pageCount(); ++i) {
        window->setCurrentPage(i);
        const QString name = QStringLiteral("page-") + window->page(i)->windowTitle();
        writer->write(window, name);
        if (auto *dark = window->page(i)->findChild<QCheckBox *>(QStringLiteral("darkGround"))) {
            dark->setChecked(true);
            writer->write(window, name + QStringLiteral("-dark"));
            dark->setChecked(false);
        }
    }
}

} // namespace

bool writePages(GalleryWindow *window, const QString &folder)
{
    Writer writer(folder);
    writePages(&writer, window);
    return writer.ok();
}

bool writeScreenshots(GalleryWindow *window, const QString &folder)
{
    Writer writer(folder);
    writePages(&writer, window);

    const QList<QDialog *> dialogs =
        DialogsPage::createDialogs(window) + MessageBoxPage::createDialogs(window);
    for (QDialog *dialog : dialogs) {
        dialog->setModal(false);
        dialog->show();
        writer.write(dialog, QStringLiteral("dialog-") + dialog->windowTitle());
        delete dialog;
    }

    window->setCurrentPage(0);
    {
        KestLoadingDialog overlay(window);
        QTimer::singleShot(0, &overlay, [&] {
            writer.write(window, QStringLiteral("overlay"));
            overlay.done();
        });
        overlay.exec();
    }
    for (int i = 0; i < window->themeCount(); ++i) {
        window->setTheme(i);
        writer.write(window, QStringLiteral("theme-") + window->themeName(i));
        writer.write(contactSheet(1.0), QStringLiteral("contact-sheet-") + window->themeName(i));
    }
    const QSize size = window->size();
    for (int i = 0; i < window->themeCount(); ++i) {
        window->setTheme(i);
        for (const int percent : GalleryWindow::scales()) {
            const QString look = QStringLiteral("%1-%2").arg(window->themeName(i)).arg(percent);
            window->setScale(percent);
            window->resize(size * percent / 100);
            writer.write(window, QStringLiteral("scale-") + look);
        }
    }
    window->setTheme(0);
    window->setScale(100);
    window->resize(size);
    return writer.ok();
}
