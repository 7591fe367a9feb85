#pragma once

#include <QStringView>

#include <span>

class QWidget;

namespace dao
{
class Recordset;
}

namespace core
{

/// A box and the column that it is written to.
struct CaixaDeTexto {
    QStringView controle;
    QStringView tabela;
    QStringView coluna;
};

/// A box takes what its column holds, typed, pasted or chosen: a longer text would end the program where it is written.
/// A box of numbers has no such limit.
void LimitaAoCampo(QWidget *controle, const dao::Recordset &tabela, QStringView coluna);
void LimitaAosCampos(const QWidget &janela, std::span<const CaixaDeTexto> caixas);

} // namespace core
