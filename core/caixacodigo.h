#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QAbstractButton;
class QLineEdit;

namespace dao
{
class Recordset;
}

namespace ui
{
class Form;
}

namespace core
{

/// A code box told as data: how its text is looked up, what a row shows, and the register that its keys and buttons
/// open. A part that a window does itself is left out.
struct RegrasDoCodigo {
    QString (*consulta)(const QString &codigo) = nullptr; ///< nullptr: leaving is the window's own
    QStringView naoLocalizado = {};
    /// Why a row is not taken; "" takes it.
    QStringView (*recusa)(const dao::Recordset &linha) = nullptr;
    std::function<void(const dao::Recordset &linha)> mostra = {}; ///< behind it the code takes its format
    std::function<void()> esvazia = {};                           ///< behind the box that tells of no such code
    bool vazioEsvazia = false;                                    ///< leaving the empty box empties, too
    bool voltaOFoco = true;                                       ///< a code that is not taken keeps the focus

    QStringView cadastro = {};
    QAbstractButton *procura = nullptr; ///< and F1
    qint16 modoProcura = 0;
    QAbstractButton *inclui = nullptr; ///< and F2
    qint16 modoInclui = 0;
};

/// The events of a code box, made in the window's constructor; it goes with the box.
class CaixaDeCodigo : public QObject
{
public:
    CaixaDeCodigo(ui::Form &janela, QLineEdit *caixa, RegrasDoCodigo regras);

    /// What leaving the box does.
    void procura();

private:
    QStringView mostraLinha();
    void recusa(QStringView mensagem);
    void abreProcura();
    void abreInclusao();

    QLineEdit *caixa_;
    RegrasDoCodigo regras_;
};

} // namespace core
