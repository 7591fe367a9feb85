#pragma once

#include <QPushButton>

namespace shell
{

/// A button that comes and goes by itself. It keeps the keyboard's focus while it is hidden: who has gone to it presses
/// it whenever he likes, and the focus does not wander through the window by the beat of a timer.
class BotaoPiscante : public QPushButton
{
    Q_OBJECT

public:
    using QPushButton::QPushButton;

    void setVisible(bool visivel) override;

protected:
    bool focusNextPrevChild(bool next) override;

private:
    bool escondendo_ = false;
};

} // namespace shell
