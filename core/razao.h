#pragma once

#include "platform/runtime/value.h"

#include <QString>

/// The running-balance ledger: a table whose every row carries the balance after it. Balances are 32-bit floats,
/// rounded after every row.
namespace core
{

/// A ledger: its table and balance column, and the column of its owners where every owner has a balance of his own.
struct Razao {
    QStringView tabela;
    QStringView saldo = u"Saldo";
    QStringView dono = {};
};

inline constexpr Razao razaoCaixa{.tabela = u"Caixa"};
inline constexpr Razao razaoBanco1{.tabela = u"Banco1"};
inline constexpr Razao razaoBanco2{.tabela = u"Banco2"};
inline constexpr Razao razaoContaFiado{.tabela = u"ContaFiado", .dono = u"CodCliente"};
inline constexpr Razao razaoEstoque{.tabela = u"Estoque", .saldo = u"Estoque", .dono = u"CodPeca"};

/// What a movement does to the balance. A stock-taking fills both sides and sets it, whatever it was.
enum class Operacao { Entrada, Saida, Conferencia };

/// A movement to be posted. Values are texts of the screen or numbers.
struct Lancamento {
    QString dono = {};        ///< the owner's code, in a ledger that has owners
    runtime::Value data = {}; ///< today where none is given
    QString descricao;        ///< what the column can't hold of it is left out
    runtime::Value valor;
    Operacao operacao = Operacao::Entrada;
    runtime::Value codOs = {}; ///< the order behind it; not written where none is given
};

/// How a poster comes to the balance before its row. The windows differ, and their balances with them: a look-up goes
/// by way of a text, with the seven digits of a Single, and has no number for an empty ledger (error 13).
enum class SaldoAnterior { UltimaLinha, Busca, BuscaOuZero, Nenhum };

/// The width of the sum, before it is stored in 32 bits. A text takes part in 64 bits, be it the balance that was
/// looked up or the movement's value; what a row holds, in 32.
enum class Precisao {
    Single,        ///< both in 32 bits: the balance is converted, the value is what the row has stored of it
    DoubleDoSaldo, ///< the balance's text and the value as stored
    Double,        ///< the texts of both
};

struct Calculo {
    SaldoAnterior anterior = SaldoAnterior::UltimaLinha;
    Precisao precisao = Precisao::Single;
};

/// Appends a movement behind the newest row of its ledger, the one with the highest code, whatever their dates. The
/// balances of other rows stay. Error 6 for a balance out of range, 3421 for a value that is no number; nothing is
/// written then.
void LancaNoRazao(const Razao &razao, const Lancamento &lancamento, const Calculo &calculo = {});

/// The balance of the newest row; 0 for an empty ledger. Costs one look-up.
float UltimoSaldo(const Razao &razao, const QString &dono = {});

/// The last row's `coluna` of a statement; 0 for no row.
float UltimoSaldo(const QString &consulta, const QString &coluna);

/// The balance after a movement, negative where something leaves, in 32-bit arithmetic. Error 6 for a sum out of range.
float SaldoDepois(float saldo, float movimento);

/// Appends the first row of a part's ledger, dated today: `quantidade` comes in and is the balance.
void AbreEstoque(const runtime::Value &codPeca, const QString &descricao, const runtime::Value &quantidade);

/// Walks a whole ledger, or that of one owner, in the order of date and code, and rewrites each balance: `Entrada`
/// adds, where it is Null `Saida` takes away. One edit and update a row, whether or not it changed.
void RecalculaRazao(const Razao &razao, const QString &dono = {});

} // namespace core
