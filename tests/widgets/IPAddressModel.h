// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

#ifndef IPADDRESSMODEL_H
#define IPADDRESSMODEL_H

#include "IPAddressState.h"

#include <QAction>
#include <QtGui/QClipboard>
#include <QtGui/QFocusEvent>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleOptionFrame>

#include <functional>
#include <string>
#include <vector>

/*!
    \file
    A model of the address edit, and a trial that drives both with the same input: keys, clicks,
    drags, pastes, read-only switches, focus changes and addresses set by the program.
*/

/*! What the edit is meant to do, in plain strings and numbers. */
struct IPAddressModel
{
    struct Marks
    {
        bool any = false;
        int from = 0;
        int to = 0;
    };

    std::string text[4];
    Marks marks[4];
    int cursor = 0;
    bool readOnly = false;
    bool pressed = false;
    int pressedAt = 0;
    int changed = 0;
    int finished = 0;

    int section() const { return cursor / 4 > 3 ? 3 : cursor / 4; }
    int column() const { return cursor % 4; }
    int length(int s) const { return int(text[s].size()); }

    bool anyMarks() const { return marks[0].any || marks[1].any || marks[2].any || marks[3].any; }
    void unmark()
    {
        for (Marks &m : marks)
            m.any = false;
    }

    bool put(int s, const std::string &value)
    {
        // A number above 255, or below 0, is refused; no number at all is not.
        const size_t begin = value.find_first_not_of(' ');
        const size_t end = value.find_last_not_of(' ') + 1;
        const std::string number = end > 0 ? value.substr(begin, end - begin) : std::string();
        const size_t sign = number.find_first_of("+-") == 0 ? 1 : 0;
        if (number.size() > sign
            && number.find_first_not_of("0123456789", sign) == std::string::npos
            && (std::stol(number) > 255 || std::stol(number) < 0))
            return false;
        text[s] = value;
        ++changed;
        return true;
    }

    void removeMarked()
    {
        for (int s = 0; s < 4; ++s) {
            if (!marks[s].any)
                continue;
            std::string kept;
            for (int i = 0; i < length(s); ++i) {
                if (i < marks[s].from || i >= marks[s].to)
                    kept += text[s][size_t(i)];
            }
            put(s, kept);
            cursor = 4 * s + int(kept.size());
        }
        unmark();
    }

    // Moves the end of the marks at the cursor's column, or makes new ones from an anchor.
    void markTo(int position, int anchor)
    {
        const int s = position / 4 > 3 ? 3 : position / 4;
        const int a = anchor % 4;
        const int t = position % 4;
        const int f = cursor % 4;
        Marks &m = marks[s];
        int fixed = a;
        if (m.any) {
            fixed = f;
            if (m.from < m.to && f == m.from)
                fixed = m.to;
            else if (m.from < m.to && f == m.to)
                fixed = m.from;
        }
        m.any = true;
        m.from = fixed < t ? fixed : t;
        m.to = fixed < t ? t : fixed;
        cursor = position;
    }

    void digit(char c)
    {
        if (readOnly)
            return;
        if (anyMarks())
            removeMarked();
        const int s = section();
        const int k = column();
        std::string t = text[s];
        if (k < length(s)) {
            if (length(s) >= 3)
                return;
            t.insert(size_t(k), 1, c);
            if (put(s, t))
                ++cursor;
        } else if (length(s) != 3) {
            t += c;
            if (!put(s, t))
                return;
            ++cursor;
            if (t.size() == 3 && cursor <= 11)
                ++cursor;
        }
    }

    void backspace()
    {
        if (readOnly)
            return;
        if (anyMarks()) {
            removeMarked();
            return;
        }
        const int s = section();
        const int k = column();
        std::string t = text[s];
        if (k > 0 && !t.empty()) {
            if (k - 1 < length(s))
                t.erase(size_t(k - 1), 1);
            --cursor;
            put(s, t);
        } else if (k == 0 && s > 0) {
            t = text[s - 1];
            cursor = 4 * (s - 1) + int(t.size());
            if (!t.empty()) {
                t.pop_back();
                --cursor;
            }
            put(s - 1, t);
        }
    }

    void del()
    {
        if (readOnly)
            return;
        if (anyMarks()) {
            removeMarked();
            return;
        }
        const int s = section();
        if (column() < length(s)) {
            std::string t = text[s];
            t.erase(size_t(column()), 1);
            put(s, t);
        }
    }

    void left(bool shift)
    {
        if (shift) {
            if (column() != 0)
                markTo(cursor - 1, cursor);
        } else if (anyMarks()) {
            unmark();
        } else {
            if (cursor > 0)
                --cursor;
            if (column() > length(section()))
                cursor = 4 * section() + length(section());
        }
    }

    void right(bool shift)
    {
        if (shift) {
            if (column() != 3)
                markTo(cursor + 1, cursor);
        } else if (anyMarks()) {
            unmark();
        } else if (cursor < 16) {
            if (column() != length(section()))
                ++cursor;
            else if (section() < 3)
                cursor = 4 * (section() + 1);
        }
    }

    void dot()
    {
        const int s = section();
        if (s != 3 && length(s) > 0 && column() == length(s))
            cursor = 4 * (s + 1);
    }

    static bool isPart(const std::string &part)
    {
        return !part.empty() && part.size() <= 3
            && part.find_first_not_of("0123456789") == std::string::npos && std::stol(part) <= 255;
    }

    static std::vector<std::string> split(const std::string &address)
    {
        std::vector<std::string> parts(1);
        for (char c : address) {
            if (c == '.')
                parts.emplace_back();
            else
                parts.back() += c;
        }
        return parts;
    }

    void setAddress(const std::string &address)
    {
        const std::vector<std::string> parts = split(address);
        if (parts.size() != 4)
            return;
        for (const std::string &part : parts) {
            if (!isPart(part))
                return;
        }
        for (int s = 0; s < 4; ++s)
            put(s, parts[size_t(s)]);
    }

    void paste(const std::string &pasted)
    {
        if (readOnly || pasted.empty())
            return;
        if (split(pasted).size() == 4) {
            setAddress(pasted);
            return;
        }
        const int s = section();
        const int k = column();
        std::string t = text[s];
        int after = k + 1;
        if (marks[s].any) {
            // What is marked may reach past the digits.
            const int from = marks[s].from;
            const int to = marks[s].to > length(s) ? length(s) : marks[s].to;
            if (from <= length(s))
                t = t.substr(0, size_t(from)) + pasted
                    + (to < length(s) ? t.substr(size_t(to)) : "");
            after = marks[s].to;
        } else {
            t.insert(size_t(k > length(s) ? length(s) : k), pasted);
        }
        if (t.size() > 3)
            return;
        put(s, t);
        cursor = 4 * s + after;
        unmark();
    }

    void press(int position, bool shift)
    {
        if (!shift) {
            unmark();
            cursor = position;
            pressed = true;
            pressedAt = position;
        } else if (position / 4 == section()) {
            markTo(position, cursor);
        }
    }

    void drag(int position)
    {
        if (pressed && position / 4 == pressedAt / 4)
            markTo(position, pressedAt);
    }

    void doubleClick(int position)
    {
        unmark();
        const int s = position / 4;
        marks[s] = { true, 0, length(s) };
        cursor = 4 * s + length(s);
    }

    void blur(bool keep)
    {
        if (!keep)
            unmark();
        ++finished;
    }

    QString state() const
    {
        QString line;
        QString selections;
        for (int s = 0; s < 4; ++s) {
            line += (s > 0 ? QStringLiteral("|") : QString()) + QString::fromStdString(text[s]);
            if (marks[s].any) {
                selections +=
                    QStringLiteral(" %1:%2-%3").arg(s).arg(marks[s].from).arg(marks[s].to);
            }
        }
        return line + QStringLiteral(" @%1").arg(cursor) + selections;
    }
};

/*! Where a position is on an edit whose digits all have one width: worked out from the font. */
class IPAddressRuler
{
public:
    explicit IPAddressRuler(const QWidget *edit)
    {
        const QFontMetrics metrics(edit->font());
        m_dot = metrics.boundingRect(QLatin1Char('.')).width();
        m_section = metrics.boundingRect(QStringLiteral(" 000") + QChar()).width();
        QStyleOptionFrame option;
        option.initFrom(edit);
        option.rect = edit->contentsRect();
        option.lineWidth = edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
        option.state |= QStyle::State_Sunken;
        m_left = edit->style()->subElementRect(QStyle::SE_LineEditContents, &option, edit).left();
        m_font = edit->font();
    }

    int end() const { return m_left + 4 * m_section + 3 * m_dot; }

    int position(int x, const IPAddressModel &model) const
    {
        for (int s = 0; s < 4; ++s) {
            const int left = m_left + s * (m_section + m_dot);
            const int right = left + m_section + (s < 3 ? m_dot : 0);
            if (x < left)
                return 0;
            if (x < right || s == 3)
                return 4 * s + column(x - left, QString::fromStdString(model.text[s]));
        }
        return 0;
    }

private:
    // The boundary that is next to x, of two at the same distance the earlier one.
    int column(int x, const QString &text) const
    {
        QTextLayout layout(text, m_font);
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        const int inset = qRound((m_section - line.naturalTextWidth()) * 0.5 + m_left) - m_left;
        int best = 0;
        for (int i = 1; i <= text.length(); ++i) {
            const qreal here = qAbs(line.cursorToX(i) - (x - inset));
            if (here < qAbs(line.cursorToX(best) - (x - inset)))
                best = i;
        }
        return best;
    }

    int m_left = 0;
    int m_dot = 0;
    int m_section = 0;
    QFont m_font;
};

/*! An edit and its model, given the same input step by step. */
class IPAddressTrial
{
public:
    /*! \a below returns a number from 0 to its argument - 1, which is at most a few hundred;
        \a texts is what is pasted and set. */
    IPAddressTrial(const std::function<int(int)> &below, const QStringList &texts)
        : m_below(below), m_texts(texts), m_ruler(&m_edit)
    {
        m_edit.resize(m_edit.sizeHint() + QSize(40, 0));
        QObject::connect(&m_edit, &KestIPAddressEdit::editChanged, [this] { ++m_changed; });
        QObject::connect(&m_edit, &KestIPAddressEdit::editingFinished, [this] { ++m_finished; });
    }

    KestIPAddressEdit *edit() { return &m_edit; }

    /*! Does something to both, and returns where they differ then, or an empty text. */
    QString step();

private:
    Q_DISABLE_COPY(IPAddressTrial)

    void key(int code, const QString &text, bool shift)
    {
        QKeyEvent event(QEvent::KeyPress, code, shift ? Qt::ShiftModifier : Qt::NoModifier, text);
        QCoreApplication::sendEvent(&m_edit, &event);
    }
    void mouse(QEvent::Type type, int x, bool shift)
    {
        QMouseEvent event(type, QPointF(x, 10), Qt::LeftButton,
                          type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                          shift ? Qt::ShiftModifier : Qt::NoModifier);
        QCoreApplication::sendEvent(&m_edit, &event);
    }

    const std::function<int(int)> m_below;
    const QStringList m_texts;
    KestIPAddressEdit m_edit;
    const IPAddressRuler m_ruler;
    IPAddressModel m_model;
    int m_changed = 0;
    int m_finished = 0;
};

inline QString IPAddressTrial::step()
{
    const QString before = stateOf(&m_edit);
    QString what;
    const bool shift = m_below(3) == 0;
    const int x = m_below(m_ruler.end() + 30) - 5;
    switch (m_below(16)) {
    case 0:
    case 1:
    case 2:
    case 3: {
        const int digit = m_below(4) == 0 ? m_below(10) : m_below(3);
        what = QStringLiteral("digit %1").arg(digit);
        key(Qt::Key_0 + digit, QString::number(digit), false);
        m_model.digit(char('0' + digit));
        break;
    }
    case 4:
        what = QStringLiteral("backspace");
        key(Qt::Key_Backspace, QStringLiteral("\b"), false);
        m_model.backspace();
        break;
    case 5:
        what = QStringLiteral("delete");
        key(Qt::Key_Delete, QStringLiteral("\x7f"), false);
        m_model.del();
        break;
    case 6:
    case 7:
        what = QStringLiteral("left");
        key(m_below(2) ? Qt::Key_Left : Qt::Key_Up, QString(), shift);
        m_model.left(shift);
        break;
    case 8:
    case 9:
        what = QStringLiteral("right");
        key(m_below(2) ? Qt::Key_Right : Qt::Key_Down, QString(), shift);
        m_model.right(shift);
        break;
    case 10:
        what = QStringLiteral("dot");
        key(Qt::Key_Period, QStringLiteral("."), false);
        m_model.dot();
        break;
    case 11:
        what = QStringLiteral("press at %1").arg(x);
        mouse(QEvent::MouseButtonPress, x, shift);
        m_model.press(m_ruler.position(x, m_model), shift);
        break;
    case 12:
        what = QStringLiteral("drag to %1").arg(x);
        mouse(QEvent::MouseMove, x, shift);
        if (!shift)
            m_model.drag(m_ruler.position(x, m_model));
        break;
    case 13:
        if (m_below(2)) {
            what = QStringLiteral("release");
            mouse(QEvent::MouseButtonRelease, x, shift);
            m_model.pressed = m_model.pressed && shift;
        } else {
            what = QStringLiteral("double click at %1").arg(x);
            mouse(QEvent::MouseButtonDblClick, x, shift);
            if (!shift)
                m_model.doubleClick(m_ruler.position(x, m_model));
        }
        break;
    case 14: {
        const QString text = m_texts.at(m_below(m_texts.size()));
        what = QStringLiteral("paste ") + text;
        if (m_below(4) == 0) {
            m_edit.setIPAddress(text);
            m_model.setAddress(text.toStdString());
        } else {
            QGuiApplication::clipboard()->setText(text);
            m_edit.actions().at(1)->trigger();
            m_model.paste(text.toStdString());
        }
        break;
    }
    case 15:
        switch (m_below(6)) {
        case 0:
            what = QStringLiteral("read-only");
            m_edit.setReadOnly(!m_edit.isReadOnly());
            m_model.readOnly = !m_model.readOnly;
            break;
        case 1: {
            what = QStringLiteral("focus");
            QFocusEvent in(QEvent::FocusIn, Qt::OtherFocusReason);
            QCoreApplication::sendEvent(&m_edit, &in);
            break;
        }
        case 2: {
            what = QStringLiteral("blur");
            QFocusEvent out(QEvent::FocusOut, shift ? Qt::PopupFocusReason : Qt::TabFocusReason);
            QCoreApplication::sendEvent(&m_edit, &out);
            m_model.blur(shift);
            break;
        }
        case 3:
            what = QStringLiteral("escape");
            key(Qt::Key_Escape, QString(), false);
            m_model.unmark();
            break;
        case 4:
            what = QStringLiteral("return");
            key(Qt::Key_Return, QStringLiteral("\r"), false);
            ++m_model.finished;
            break;
        default: {
            // What is copied is of the first section that has something selected.
            what = QStringLiteral("copy");
            QGuiApplication::clipboard()->setText(QStringLiteral("none"));
            m_edit.actions().at(0)->trigger();
            QString expected = QStringLiteral("none");
            for (int s = 3; s >= 0; --s) {
                if (!m_model.marks[s].any)
                    continue;
                expected =
                    QString::fromStdString(m_model.text[s])
                        .mid(m_model.marks[s].from, m_model.marks[s].to - m_model.marks[s].from);
            }
            const QString copied = QGuiApplication::clipboard()->text();
            if (copied != expected)
                return QStringLiteral("copied \"%1\", not \"%2\"").arg(copied, expected);
            break;
        }
        }
        break;
    }
    const QString now = stateOf(&m_edit);
    if (now == m_model.state() && m_changed == m_model.changed && m_finished == m_model.finished)
        return QString();
    return QStringLiteral("%1 in \"%2\" gave \"%3\" (%4, %5), not \"%6\" (%7, %8)")
        .arg(what, before, now)
        .arg(m_changed)
        .arg(m_finished)
        .arg(m_model.state())
        .arg(m_model.changed)
        .arg(m_model.finished);
}

#endif // IPADDRESSMODEL_H
