#pragma once

#include <QObject>

namespace ui
{

/// The states of Num Lock and Caps Lock. Read from the system where it tells them; elsewhere the presses of the two
/// keys are counted from "off".
class Locks : public QObject
{
    Q_OBJECT

public:
    explicit Locks(QObject *parent = nullptr);

    bool num() const { return num_; }
    bool caps() const { return caps_; }

    /// Reads the states again; to be called now and then, as other programs change them too.
    void refresh();

signals:
    void changed();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void keyPressed(int key);
    void set(bool num, bool caps);

    bool num_ = false;
    bool caps_ = false;
};

} // namespace ui
