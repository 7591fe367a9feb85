#pragma once

#include "support/boxes.h"
#include "support/cadastro.h"

#include <memory>

/// What the cases of store credit share: the pending orders of some customers, and rows of their accounts.
namespace fiados
{

extern const QString nulo;

class Case : public QObject
{
    Q_OBJECT

protected:
    void prepara();
    void termina();

    void abre(const QString &janela, int modo = 0) { janela_ = cadastro::open(janela, modo); }

    qint32 ordem(qint32 veiculo = 0);
    void pendente(qint32 cliente, const QString &codOs, const QString &valor = QStringLiteral("100"),
                  const QString &vencimento = QStringLiteral("06/20/2024"), bool pago = false);

    /// Unpaid, paid and unpaid orders of three customers: ANA, BRUNO and CARLA with the orders 1, 2 and 3 in the rows
    /// 1, 2 and 3.
    void tresSituacoes();

    /// A row of an account as another writer leaves it; "Null" for the side that it has not.
    void lancamento(qint32 cliente, const QString &data, const QString &descricao, const QString &entrada,
                    const QString &saida, const QString &saldo = QStringLiteral("0"));

    std::unique_ptr<support::Program> program_;
    std::unique_ptr<support::Boxes> boxes_;
    ui::Form *janela_ = nullptr;
};

} // namespace fiados
