// The import of genuine Jet files, against reading them by its library and writing what was read.
#include "bench/banco_cru.h"
#include "bench/oficina.h"
#include "bench/relator.h"

#include "core/modulo.h"
#include "support/jet4/jet4.h"
#include "tools/importa/importa.h"

#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <cstring>
#include <memory>
#include <vector>

// Its own header takes glib in as if that were C.
#include <glib.h>

#include <mdbtools.h>

using namespace Qt::StringLiterals;

namespace medidas
{

namespace
{

constexpr std::size_t maiorTexto = 256;

jet4::Table clientes()
{
    comClientes().abre();
    auto linha = core::DBDados->OpenRecordset(u"Clientes"_s);
    jet4::Table tabela{.name = u"Clientes"_s, .columns = {}, .rows = {}};
    for (int i = 0; i < linha.fieldCount(); ++i) {
        const dao::Field campo = linha.field(i);
        tabela.columns.push_back({.name = campo.name,
                                  .type = static_cast<int>(campo.type),
                                  .size = campo.size,
                                  .counter = campo.isCounter()});
    }
    for (; !linha.Eof(); linha.MoveNext()) {
        auto &valores = tabela.rows.emplace_back().values;
        for (int i = 0; i < linha.fieldCount(); ++i) {
            valores.push_back(linha.value(i));
        }
    }
    return tabela;
}

/// The file of the old program with the customers of the large workshop, made at first use.
const QString &antigo()
{
    static const QTemporaryDir pasta;
    static const QString arquivo = [] {
        const QString nome = pasta.filePath(u"antigo.mdb"_s);
        if (!jet4::write(nome, {.tables = {clientes()}})) {
            qFatal("The Jet file can't be written");
        }
        return nome;
    }();
    return arquivo;
}

QString novo(const QTemporaryDir &pasta)
{
    const QString nome = pasta.filePath(u"DADOS.MDB"_s);
    QFile::remove(nome);
    return nome;
}

void importaTudo(benchmark::State &state)
{
    const QString origem = antigo();
    const QTemporaryDir pasta;
    for (auto turn : state) {
        state.PauseTiming();
        const QString destino = novo(pasta);
        state.ResumeTiming();
        const auto resultado =
            importa::Importa({.origem = origem, .destino = destino}, [](const importa::Passo &) { return true; });
        if (!resultado.tudoVeio()) {
            qFatal("Not every customer was imported");
        }
    }
}

/// A table of the old file, its columns bound to texts.
class TabelaCrua
{
public:
    TabelaCrua(const QString &arquivo, const char *nome)
        : arquivo_(mdb_open(arquivo.toUtf8().constData(), MDB_NOFLAGS)), textos_(colunas), tamanhos_(colunas)
    {
        mdb_set_bind_size(arquivo_.get(), maiorTexto);
        mdb_read_catalog(arquivo_.get(), MDB_TABLE);
        std::vector<char> copia(nome, nome + std::strlen(nome) + 1);
        tabela_.reset(mdb_read_table(mdb_get_catalogentry_by_name(arquivo_.get(), copia.data())));
        mdb_read_columns(tabela_.get());
        for (std::size_t i = 0; i < colunas; ++i) {
            mdb_bind_column(tabela_.get(), static_cast<int>(i) + 1, textos_[i].data(), &tamanhos_[i]);
        }
        mdb_rewind_table(tabela_.get());
    }

    bool proxima() { return mdb_fetch_row(tabela_.get()) != 0; }

    static constexpr std::size_t colunas = 20;

    /// "" for Null as well.
    QByteArrayView texto(std::size_t coluna) const { return {textos_[coluna].data(), tamanhos_[coluna]}; }

private:
    struct Fecha {
        void operator()(MdbHandle *arquivo) const { mdb_close(arquivo); }
        void operator()(MdbTableDef *tabela) const { mdb_free_tabledef(tabela); }
    };

    std::unique_ptr<MdbHandle, Fecha> arquivo_;
    std::unique_ptr<MdbTableDef, Fecha> tabela_;
    std::vector<std::array<char, maiorTexto>> textos_;
    std::vector<int> tamanhos_;
};

/// The columns as the file of the program declares them, without indexes.
constexpr auto tabelaNova =
    "CREATE TABLE Clientes (Codigo COUNTER, DataCadastro DATE, Nome TEXT, Endereco TEXT, Numero INTEGER, Complemento "
    "TEXT, Bairro TEXT, Cidade TEXT, Estado TEXT, CEP TEXT, PontoReferencia TEXT, Fone1 TEXT, Fone2 TEXT, Celular "
    "TEXT, "
    "RG TEXT, CPF TEXT, DataNascimento DATE, Email TEXT, LimiteCredito SINGLE, Observacoes TEXT)";

void copiaCrua(const QString &origem, const QString &destino)
{
    TabelaCrua clientes(origem, "Clientes");
    BancoCru banco(destino);
    banco.execute(tabelaNova);
    banco.execute("BEGIN");
    Instrucao inclui(banco, "INSERT INTO Clientes VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    while (clientes.proxima()) {
        for (std::size_t i = 0; i < TabelaCrua::colunas; ++i) {
            const QByteArrayView texto = clientes.texto(i);
            const int lugar = static_cast<int>(i) + 1;
            texto.isEmpty() ? inclui.bindNull(lugar) : inclui.bindUtf8(lugar, texto);
        }
        inclui.run();
    }
    banco.execute("COMMIT");
}

void leEGrava(benchmark::State &state)
{
    const QString origem = antigo();
    const QTemporaryDir pasta;
    for (auto turn : state) {
        state.PauseTiming();
        const QString destino = novo(pasta);
        state.ResumeTiming();
        copiaCrua(origem, destino);
    }
}

} // namespace

void medeImportacao()
{
    compara(
        {"importa", 2.0,
         "200,000 customers imported from a Jet file, with indexes, sums and examination, against reading them with "
         "its library alone and writing them with one prepared statement in one batch"},
        importaTudo, leEGrava);
}

} // namespace medidas
