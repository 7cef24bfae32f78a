// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// The address edit beside its model, and by itself with a host that deletes it in its signals.

#include "Fuzzer.h"
#include "IPAddressModel.h"

#include <QtCore/QPointer>
#include <QtGui/QInputMethodEvent>
#include <QtGui/QPixmap>

namespace {

// The edit takes any text that is pasted; its model counts bytes.
QStringList texts(FuzzInput &input)
{
    QStringList list { QStringLiteral("1"), QStringLiteral("255"), QStringLiteral("1.2.3.4") };
    for (int left = input.below(4); left > 0; --left) {
        QString text;
        for (int length = input.below(20); length > 0; --length)
            text += QLatin1Char(char(' ' + input.below(95)));
        list.append(text);
    }
    return list;
}

void tryWithModel(FuzzInput &input)
{
    const QStringList pasted = texts(input);
    IPAddressTrial trial([&input](int count) { return input.below(count); }, pasted);
    while (!input.atEnd()) {
        const QString difference = trial.step();
        FUZZ_CHECK(difference.isEmpty(), difference);
    }
    trial.edit()->grab();
}

void sendKey(QWidget *edit, FuzzInput &input)
{
    const int keys[] = { Qt::Key_0,    Qt::Key_9,      Qt::Key_Backspace, Qt::Key_Delete,
                         Qt::Key_Left, Qt::Key_Right,  Qt::Key_Period,    Qt::Key_Home,
                         Qt::Key_End,  Qt::Key_Return, Qt::Key_Escape,    Qt::Key_A,
                         Qt::Key_C,    Qt::Key_V,      Qt::Key_X,         Qt::Key_Tab };
    const int code = keys[input.below(16)];
    const Qt::KeyboardModifiers modifiers[] = { Qt::NoModifier, Qt::ShiftModifier,
                                                Qt::ControlModifier, Qt::AltModifier };
    const QString text = input.flag() && code < 128 ? QString(QChar(code)) : input.text(3);
    const QEvent::Type type = input.below(8) ? QEvent::KeyPress : QEvent::ShortcutOverride;
    QKeyEvent event(type, code, modifiers[input.below(4)], text, input.flag());
    QCoreApplication::sendEvent(edit, &event);
}

void sendMouse(QWidget *edit, FuzzInput &input)
{
    const QEvent::Type types[] = { QEvent::MouseButtonPress, QEvent::MouseMove,
                                   QEvent::MouseButtonRelease, QEvent::MouseButtonDblClick };
    const Qt::MouseButton button = input.below(4) ? Qt::LeftButton : Qt::MiddleButton;
    const QEvent::Type type = types[input.below(4)];
    const QPointF at(input.integer(), input.integer());
    QMouseEvent event(type, at, type == QEvent::MouseMove ? Qt::NoButton : button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button,
                      input.flag() ? Qt::ShiftModifier : Qt::NoModifier);
    QCoreApplication::sendEvent(edit, &event);
}

void tryWithRuthlessHost(FuzzInput &input)
{
    const QPointer<KestIPAddressEdit> edit(new KestIPAddressEdit(nullptr));
    int left = input.byte(); // signals, until the host deletes the edit
    const bool calls = input.flag();
    bool inside = false;
    const auto answer = [&] {
        if (left-- == 0) {
            delete edit.data();
        } else if (calls && !inside) {
            inside = true;
            edit->setIPAddress(QStringLiteral("%1.0.255.7").arg(left % 256));
            if (edit)
                edit->setReadOnly(left % 2);
            inside = false;
        }
    };
    QObject::connect(edit, &KestIPAddressEdit::editChanged, qApp, answer);
    QObject::connect(edit, &KestIPAddressEdit::editingFinished, qApp, answer);

    while (edit && !input.atEnd()) {
        switch (input.below(10)) {
        case 0:
        case 1:
            sendKey(edit, input);
            break;
        case 2:
        case 3:
            sendMouse(edit, input);
            break;
        case 4:
            QGuiApplication::clipboard()->setText(input.text(40));
            if (edit->actions().size() > 1)
                edit->actions().at(input.below(2))->trigger();
            break;
        case 5: {
            edit->setIPAddress(input.text(20));
            if (!edit)
                break;
            QInputMethodEvent event(input.text(4), {});
            event.setCommitString(input.text(6), input.integer(), input.integer());
            QCoreApplication::sendEvent(edit, &event);
            break;
        }
        case 6: {
            const bool in = input.flag();
            QFocusEvent event(in ? QEvent::FocusIn : QEvent::FocusOut,
                              Qt::FocusReason(input.below(8)));
            QCoreApplication::sendEvent(edit, &event);
            break;
        }
        case 7:
            edit->resize(input.below(256), input.below(64));
            edit->setLayoutDirection(input.flag() ? Qt::RightToLeft : Qt::LeftToRight);
            break;
        case 8: {
            QFont font = edit->font();
            font.setPointSizeF(1 + input.below(60) / 2.0);
            font.setLetterSpacing(QFont::AbsoluteSpacing, input.below(9) - 4);
            edit->setFont(font);
            break;
        }
        default:
            edit->setEnabled(input.flag());
            if (edit)
                edit->grab();
            if (edit) {
                QInputMethodQueryEvent query(Qt::ImQueryAll);
                QCoreApplication::sendEvent(edit, &query);
            }
            break;
        }
        if (!edit)
            break;
        for (int section = 0; section < SectionCount; ++section) {
            const QString text = recordOf(edit)->text(section);
            FUZZ_CHECK(text.size() <= 3 && text.toInt() <= 255, text);
        }
        FUZZ_CHECK(recordOf(edit)->cursorPosition >= 0 && recordOf(edit)->cursorPosition <= 16,
                   stateOf(edit));
    }
    delete edit.data();
}

} // namespace

void fuzz(FuzzInput &input)
{
    if (input.below(3) > 0)
        tryWithModel(input);
    else
        tryWithRuthlessHost(input);
}
