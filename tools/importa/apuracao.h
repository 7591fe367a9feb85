#pragma once

#include "platform/dao/tabledef.h"
#include "platform/runtime/value.h"
#include "tools/importa/importa.h"

#include <QHash>

#include <optional>
#include <vector>

namespace importa
{

/// What the rows of a table come to: the sums of its columns of numbers and, of a ledger, the last balances. The source
/// and the target are counted by the same code, in the order of their rows, so the same rows come to the same bits.
class Apuracao
{
public:
    explicit Apuracao(const dao::TableDef &tabela);

    /// The places of the columns that are asked for, in the order in which `conta` asks for them.
    const std::vector<int> &colunas() const { return colunas_; }

    /// Counts a row; `valorDe(i)` is its value in `colunas()[i]`. What is no number counts as nothing.
    template<class ValorDe>
    void conta(const ValorDe &valorDe)
    {
        ++linhas_;
        for (std::size_t i = 0; i < somas_.size(); ++i) {
            somas_[i] += numeroDe(valorDe(i)).value_or(0);
        }
        if (razao_) {
            contaSaldo(valorDe(razao_->codigo), razao_->dono ? valorDe(*razao_->dono) : runtime::Value(qint32{0}),
                       valorDe(razao_->saldo));
        }
    }

    qint64 linhas() const { return linhas_; }

    /// The sums of the first of `colunas()`, which are its columns of numbers.
    const std::vector<double> &somas() const { return somas_; }

    /// The last balances here and in the target; none where the table is no ledger.
    std::optional<Saldo> compara(const Apuracao &destino) const;

private:
    struct Razao {
        std::size_t codigo = 0; ///< places in `colunas_`
        std::size_t saldo = 0;
        std::optional<std::size_t> dono = {};
    };
    struct Ultimo {
        double codigo = 0;
        double saldo = 0;
    };

    static std::optional<double> numeroDe(const runtime::Value &valor);
    void acrescentaRazao(const dao::TableDef &tabela);
    void contaSaldo(const runtime::Value &codigo, const runtime::Value &dono, const runtime::Value &saldo);
    double total() const;

    QString tabela_;
    std::vector<int> colunas_;
    std::vector<double> somas_;
    std::optional<Razao> razao_;
    QHash<qint64, Ultimo> ultimos_; ///< by owner
    qint64 linhas_ = 0;
};

} // namespace importa
