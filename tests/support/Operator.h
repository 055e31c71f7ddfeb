#pragma once

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <utility>

namespace quorvane {

/// Who sits before the dialogs while a test waits for their answer. The steps are done in turn, each on the
/// modal dialog that is in front by then; a step that opens a further dialog is followed by the next one
/// there. Steps that are left at the end fail the test.
class Operator {
public:
    using Step = std::function<void(QDialog& dialog)>;

    Operator() = default;
    explicit Operator(std::deque<Step> steps) { Does(std::move(steps)); }
    ~Operator() { EXPECT_EQ(steps_.size(), 0U) << "steps that no dialog came up for"; }
    Operator(const Operator&) = delete;
    Operator& operator=(const Operator&) = delete;

    void Does(std::deque<Step> steps)
    {
        const bool looks = !steps_.empty();
        for (Step& step : steps)
            steps_.push_back(std::move(step));
        if (!looks)
            Look();
    }

private:
    void Look()
    {
        if (steps_.empty())
            return;
        QTimer::singleShot(1, &timers_, [this] { Look(); });
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || dialog == busyWith_)
            return;
        const Step step = std::move(steps_.front());
        steps_.pop_front();
        QDialog* const outer = std::exchange(busyWith_, dialog);
        step(*dialog);
        busyWith_ = outer;
    }

    QObject timers_;
    std::deque<Step> steps_;
    QDialog* busyWith_ = nullptr;
};

/// A step: clicks the button that shows `text`, its mnemonic's mark left out.
[[nodiscard]] inline Operator::Step Click(const QString& text)
{
    return [text](QDialog& dialog) {
        for (auto* const button : dialog.findChildren<QAbstractButton*>())
            if (button->text().remove(u'&') == text)
                return QTest::mouseClick(button, Qt::LeftButton);
        ADD_FAILURE() << "no button " << text.toStdString();
        dialog.reject();
    };
}

/// A step: presses a key.
[[nodiscard]] inline Operator::Step Press(Qt::Key key)
{
    return [key](QDialog& dialog) { QTest::keyClick(&dialog, key); };
}

} // namespace quorvane
