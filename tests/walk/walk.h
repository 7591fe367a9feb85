#pragma once

#include "tests/fuzz/gerador.h"
#include "tests/walk/hand.h"
#include "tests/walk/targets.h"
#include "tests/walk/watch.h"

#include <QObject>
#include <QPointer>

class QDialog;
class QInputDialog;
class QMessageBox;

namespace walk
{

/// A user without sense: takes so many steps at random through the running program, from inside whatever event loop it
/// waits in, and starts it again where it ends by right. Each step is told on the standard output before it is taken;
/// the first promise of the program that does not hold is told as a line "FAULT ..." and ends the process.
class Walk : public QObject
{
    Q_OBJECT

public:
    Walk(quint32 seed, int steps);

    void run();

private:
    void arm();
    void turn();
    void step();
    void checkAll();
    void tell(const QString &step) const;
    [[noreturn]] void fault(const QString &what) const;
    void check(const QString &what) const;
    void start();
    void judgeEnd();

    void lookAtBox(QDialog &box);
    void answer(QDialog &box);
    void answerMessage(QMessageBox &box);
    void answerInput(QInputDialog &box);
    void inPopup(QWidget &popup);
    void logIn(QWidget &form);
    void inWindow(QWidget &window);
    void behindTheBox();

    // What a user does in a window.
    void clickControl(QWidget &window);
    void doubleClickList(QWidget &window);
    void typeIntoField(QWidget &window);
    void fillWindow(QWidget &window);
    void paste(QWidget &window);
    void pressKey(QWidget &window);
    void chooseCommand(QWidget &window);
    void moveFrame(QWidget &window);
    // What others do meanwhile.
    void deleteRow(QWidget &window);
    void unloadByName(QWidget &window);
    void handBack(QWidget &window);

    void put(QWidget &field, const QString &text);
    int below(int limit) { return random_.below(limit); }
    Draw draw()
    {
        return [this](int limit) { return below(limit); };
    }
    QWidget *placeOfStep(QWidget &window);
    void noteLeaving(QWidget &window);
    template<class T>
    const T &oneOf(const std::vector<T> &all)
    {
        return all[static_cast<std::size_t>(below(static_cast<int>(all.size())))];
    }

    fuzz::Gerador random_;
    Hand hand_;
    Watch watch_;
    int steps_;
    int taken_ = 0;
    int depth_ = 0;
    bool running_ = false;
    QString end_; ///< why the program may end, if it does
    QPointer<QDialog> seen_;
};

} // namespace walk
