#pragma once

#include <QString>
#include <QStringList>

#include <chrono>
#include <exception>
#include <functional>
#include <optional>
#include <vector>

namespace importa
{

/// Why nothing was imported. What stood at the target's place is as it was.
enum class Falha {
    OrigemAusente,
    OrigemNaoEArquivo, ///< a folder, a pipe
    OrigemSemPermissao,
    NaoEJet,
    Jet3,
    FormatoPosterior,
    ComSenha,
    Criptografada,
    Truncada,
    CatalogoDanificado, ///< the list of the tables can't be read
    TabelaDanificada,   ///< of a table the definition or rows: `tabela`, `prometidas`, `lidas`
    LeituraNaoTermina,  ///< the file leads its reader astray: `tabela` where it was in one
    SemTabelas,         ///< none of the program's tables stands in it
    LeitorNaoIniciou,   ///< no fault of the file
    MesmoArquivo,
    DestinoNaoEArquivo,
    DestinoComDados, ///< and nobody said that it may be replaced
    DestinoEmUso,    ///< by the program or by whoever holds the file
    DestinoSemPasta,
    DestinoSemPermissao,
    DiscoCheio,
    Interrompida,
    Outra, ///< `detalhe` is a sentence
};

/// A failure with what its sentence names.
class Erro : public std::exception
{
public:
    struct Dados {
        QString tabela = {};
        qint64 prometidas = 0;
        qint64 lidas = 0;
        QString detalhe = {};
    };

    explicit Erro(Falha falha) : falha_(falha) {}
    Erro(Falha falha, Dados dados) : falha_(falha), dados_(std::move(dados)) {}

    Falha falha() const { return falha_; }
    const Dados &dados() const { return dados_; }
    const char *what() const noexcept override { return "not imported"; }

private:
    Falha falha_;
    Dados dados_;
};

/// What is to be imported where.
struct Pedido {
    QString origem;
    QString destino;
    bool substitui = false; ///< a target that holds data gives way, and is kept beside
    bool tudo = false;      ///< tables and columns that the program does not know come along
    QString leitor = {};    ///< the program that reads the file when called with --le; this one where none is named
    std::chrono::milliseconds silencio = std::chrono::seconds(30); ///< so long it may tell nothing
};

/// How far the work is. `total` is what the source promises of the tables that are taken.
struct Passo {
    enum class Fase { Linhas, Indices, Conferencia };
    Fase fase = Fase::Linhas;
    QString tabela = {};
    qint64 linhas = 0;
    qint64 total = 0;
};

/// Is told now and then, and once more at each phase. False stops the work.
using Andamento = std::function<bool(const Passo &)>;

/// The sum of a column of numbers, in double precision by the order of the rows; the same rows give the same sum to the
/// last bit. None for a source column that is missing or holds no numbers.
struct Soma {
    QString coluna;
    std::optional<double> origem;
    double destino = 0;
};

/// Why a table or a column was left out.
enum class Motivo {
    Desconhecida, ///< the program does not know it, and not everything was asked for
    Repetida,     ///< another one has the same name
    SemTipo,      ///< pictures, bytes: the program's database has no such values
    Ilegivel,     ///< its definition is damaged, or its name can't be given
    DeTrabalho,   ///< what a report of the program left behind
};

struct ColunaFora {
    QString coluna;
    Motivo motivo = Motivo::Desconhecida;
};

/// A table of the source, of the program, or of both.
struct Tabela {
    QString nome;
    bool doPrograma = false;
    bool naOrigem = false; ///< a table of the program that is not there is made empty
    std::optional<Motivo> fora = {};
    qint64 prometidas = 0; ///< rows that the source says it has
    qint64 lidas = 0;
    qint64 gravadas = 0; ///< rows that stand in the finished target
    std::vector<Soma> somas = {};
    std::vector<ColunaFora> colunasFora = {};
    QStringList colunasMantidas = {}; ///< that the program does not know
    QStringList colunasAusentes = {}; ///< that the program has and the source has not: they are Null
};

/// What became of a value that could not come over as it was.
enum class Mudanca {
    Cortado,     ///< a text longer than its column
    Caractere,   ///< a text with half a character, which was replaced
    Arredondado, ///< a number with more digits than its column
    SemLugar,    ///< a number or a date beyond the range of its column: Null
    SemSentido,  ///< what makes no number or date of a column of another type: Null
    Ilegivel,    ///< the value is damaged in the source: Null
};

struct Lugar {
    qint64 linha = 0; ///< from 1, as the rows are stored
    std::optional<qint64> codigo;
    QString valor; ///< what stood there, "" for what could not be read
};

constexpr std::size_t lugaresGuardados = 20;

/// All values of a column that had the same fate. All are counted, the first ones are told.
struct Ocorrencia {
    QString tabela;
    QString coluna;
    Mudanca mudanca = Mudanca::Cortado;
    qint64 quantas = 0;
    std::vector<Lugar> lugares = {};
};

/// The last balances of a ledger, by the highest code: one, or one an owner, and then their sum.
struct Saldo {
    QString tabela;
    bool porDono = false;
    qint64 contas = 0; ///< owners that have one; 0 or 1 without owners
    double origem = 0;
    double destino = 0;
    qint64 diferentes = 0; ///< accounts whose balance is another one in the target, or that only one of both has
};

struct Resultado {
    std::vector<Tabela> tabelas; ///< in the order of the program, then of the source
    std::vector<Ocorrencia> ocorrencias;
    std::vector<Saldo> saldos;
    QString guardado;     ///< where the replaced target is kept; "" where none was
    bool postais = false; ///< a database of postal codes, not of a workshop

    /// Whether every table, column and value of the source came over as it is.
    bool tudoVeio() const;
};

/// Makes a database of the program out of a genuine Jet file, whole or not at all; the source is only read. The target
/// takes its name when it is finished, examined and on the disk. Raises `Erro`.
Resultado Importa(const Pedido &pedido, const Andamento &andamento);

} // namespace importa
