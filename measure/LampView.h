#pragma once

#include <QString>
#include <QWidget>

class QLabel;

namespace quorvane {

/// An alarm lamp: a picture and a word, so that lit and unlit differ by shape and by text and not by colour
/// alone.
class LampView final : public QWidget {
public:
    explicit LampView(QWidget* parent = nullptr);

    /// @param litPicture  resource name of the picture of the lit lamp
    void SetPicture(const QString& litPicture);
    /// @param name  what the lamp watches, for those who hear the window instead of seeing it
    void SetTexts(const QString& name, const QString& lit, const QString& unlit);
    void SetLit(bool lit);
    [[nodiscard]] bool IsLit() const { return lit_; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void MakeRoom();
    void Refresh();

    QLabel* picture_;
    QLabel* word_;
    QString litPicture_;
    QString name_;
    QString litText_;
    QString unlitText_;
    bool lit_ = false;
};

} // namespace quorvane
