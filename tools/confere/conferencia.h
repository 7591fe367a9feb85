#pragma once

#include "tools/confere/banco.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

namespace confere
{

/// What a finding means: the program by itself never leaves such a row, or its ordinary use may leave one (a customer
/// is deleted whose orders stay).
enum class Nivel { Erro, Aviso };

/// What one check counts and finds. Each finding is told at once and not kept: a table that is wrong from end to end
/// has as many as rows.
class Achados
{
public:
    using Diz = std::function<void(const QString &frase)>;

    explicit Achados(Diz diz) : diz_(std::move(diz)) {}

    void conta() { ++contadas_; }
    void acha(const QString &frase)
    {
        ++achadas_;
        diz_(frase);
    }

    qint64 contadas() const { return contadas_; }
    qint64 achadas() const { return achadas_; }

private:
    Diz diz_;
    qint64 contadas_ = 0;
    qint64 achadas_ = 0;
};

/// One check: its title, what it asks in a sentence of the help, the columns without which there is nothing to be
/// checked, and the check itself.
struct Conferencia {
    QString nome;
    QString pergunta;
    Nivel nivel = Nivel::Erro;
    struct Precisa {
        QStringView tabela;
        QStringList colunas;
    };
    std::vector<Precisa> precisa = {};
    std::function<void(Banco &, Achados &)> confere;
    QStringView oQueConta = u"linha"; ///< one of what it counts
};

/// The kinds of check, a file each.
std::vector<Conferencia> ConferenciasDoArquivo();      ///< integridade.cpp: the inner order of the file
std::vector<Conferencia> ConferenciasDosSaldos();      ///< saldos.cpp: ledgers and stock
std::vector<Conferencia> ConferenciasDosDocumentos();  ///< documentos.cpp: orders, estimates, notes and their lines
std::vector<Conferencia> ConferenciasDasReferencias(); ///< referencias.cpp: rows that refer to nothing
std::vector<Conferencia> ConferenciasDosPagamentos();  ///< pagamentos.cpp: what is paid, and when
std::vector<Conferencia> ConferenciasDosCodigos();     ///< codigos.cpp: codes and counters

/// All of them in the order of the report.
std::vector<Conferencia> Conferencias();

/// "Caixa, código 0012": how a finding names a row.
QString NomeDaLinha(QStringView tabela, std::optional<qint64> codigo);

/// A code as the windows show it.
QString TextoDoCodigo(qint64 codigo);

} // namespace confere
