#include "platform/runtime/error.h"

#include <array>

using namespace Qt::StringLiterals;

namespace runtime
{

namespace
{

struct StandingText {
    int number;
    const char16_t *text;
    Wording wording = Wording::Usual;
};

constexpr std::array standingTexts{
    StandingText{5, u"Chamada de procedimento ou argumento inválido"},
    StandingText{6, u"Estouro"},
    StandingText{13, u"Tipos incompatíveis"},
    StandingText{14, u"Espaço insuficiente para cadeias de caracteres"},
    StandingText{53, u"Arquivo não encontrado"},
    StandingText{91, u"Objeto não definido"},
    StandingText{91, u"Objeto não definido: %1", Wording::UnknownName},
    StandingText{94, u"Uso inválido de Null"},
    StandingText{482, u"Erro de impressora"},
    StandingText{3010, u"A tabela '%1' já existe."},
    StandingText{3020, u"Update sem AddNew ou Edit."},
    StandingText{3021, u"Não há registro atual."},
    StandingText{3024, u"Não foi possível encontrar o arquivo '%1'."},
    StandingText{3027, u"Não é possível atualizar. O conjunto de registros é somente para leitura."},
    StandingText{3051, u"Não é possível abrir ou gravar o arquivo '%1': está em uso ou não há permissão."},
    StandingText{3061, u"Parâmetros insuficientes. Eram esperados %1."},
    StandingText{3063, u"O campo '%1' aparece mais de uma vez como destino."},
    StandingText{3065, u"Não é possível executar uma consulta seleção."},
    StandingText{3075, u"%1 na expressão '%2'."},
    StandingText{3075, u"A instrução SQL está vazia.", Wording::EmptyStatement},
    StandingText{3075, u"Comando não suportado: %1.", Wording::UnknownCommand},
    StandingText{3078, u"A tabela ou consulta '%1' não foi encontrada. Verifique se o nome está correto."},
    StandingText{3079, u"O campo '%1' pode se referir a mais de uma tabela da instrução SQL."},
    StandingText{3082, u"A condição de JOIN usa o campo '%1', que não é de nenhuma das tabelas que ela une."},
    StandingText{3085, u"Função '%1' desconhecida."},
    StandingText{3086, u"Não é possível excluir de mais de uma tabela com a mesma instrução."},
    StandingText{3091, u"A tabela '%1' não pode ter mais de um campo COUNTER."},
    StandingText{3093, u"A cláusula ORDER BY usa um valor que DISTINCT não mostra."},
    StandingText{3096, u"Uma função agregada não pode estar nesta parte da instrução."},
    StandingText{3113, u"Não é possível atualizar '%1': o campo não é atualizável."},
    StandingText{3121, u"Não é possível agrupar os campos selecionados com '*'."},
    StandingText{3122, u"A consulta usa um campo que não faz parte de uma função agregada."},
    StandingText{3125, u"'%1' não é um nome válido."},
    StandingText{3127, u"O campo '%1' da instrução INSERT INTO é desconhecido."},
    StandingText{3128, u"Especifique a tabela que contém os registros a excluir."},
    StandingText{3142, u"Foram encontrados caracteres após o fim da instrução SQL."},
    StandingText{3163, u"O campo '%1' é pequeno demais para os dados que você tentou gravar."},
    StandingText{3164, u"O campo '%1' não pode ser atualizado."},
    StandingText{3167, u"O registro foi excluído."},
    StandingText{3183, u"Não há espaço suficiente no disco."},
    StandingText{3204, u"O banco de dados '%1' já existe."},
    StandingText{3219, u"Operação inválida."},
    StandingText{3265, u"Item não encontrado nesta coleção."},
    StandingText{3280, u"Não é possível excluir o campo '%1': ele faz parte do índice '%2'."},
    StandingText{3292, u"Erro de sintaxe na definição de campo."},
    StandingText{3292, u"Tipo de campo '%1' desconhecido.", Wording::UnknownFieldType},
    StandingText{3306, u"A subconsulta só pode devolver um campo."},
    StandingText{3307, u"As consultas de uma união precisam ter o mesmo número de colunas."},
    StandingText{3308, u"Argumento inválido em TOP."},
    StandingText{3315, u"O campo '%1' não aceita texto vazio."},
    StandingText{3343, u"O arquivo '%1' não é um banco de dados reconhecido."},
    StandingText{
        3343,
        u"O arquivo '%1' não é um banco de dados reconhecido. É um banco de dados Jet (.MDB) genuíno e precisa "
        "ser convertido antes de ser usado.\n\nMude o nome dele para ANTIGO.MDB e execute na pasta dele:\n\n"
        "tarvelo-importa ANTIGO.MDB \"%2\"\n\nO manual ensina os passos, em \"Trazer os "
        "dados do sistema antigo\".",
        Wording::GenuineJet},
    StandingText{3346, u"O número de valores e o de campos de destino não são iguais."},
    StandingText{3351, u"A cláusula ORDER BY de uma união só pode usar as colunas da primeira consulta."},
    StandingText{3360, u"A consulta é complexa demais."},
    StandingText{3361, u"Não é possível usar UNION em uma subconsulta."},
    StandingText{3371, u"A tabela '%1' não existe."},
    StandingText{3372, u"O índice '%1' não existe na tabela '%2'."},
    StandingText{3375, u"A tabela '%1' já tem um índice chamado '%2'."},
    StandingText{3376, u"A tabela '%1' não existe."},
    StandingText{3380, u"O campo '%1' já existe na tabela '%2'."},
    StandingText{3381, u"O campo '%1' não existe na tabela '%2'."},
    StandingText{3409, u"O campo '%1' da definição do índice não existe na tabela '%2'."},
    StandingText{3421, u"Erro de conversão do tipo de dados."},
    StandingText{3428, u"A última gravação no arquivo '%1' foi interrompida e ainda não foi desfeita."},
    StandingText{3464, u"Tipo de dados incompatível na expressão de critério."},
};

QStringView standingText(int number, Wording wording)
{
    for (const auto &entry : standingTexts) {
        if (entry.number == number && entry.wording == wording) {
            return entry.text;
        }
    }
    return {};
}

// Filled in one pass: an argument may itself hold "%1", as the patterns of a statement do.
QString filled(QStringView text, const QStringList &arguments)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto place = text[i] == u'%' && i + 1 < text.size() ? text[i + 1].digitValue() : -1;
        if (place < 1) {
            result += text[i];
            continue;
        }
        result += arguments.value(place - 1);
        ++i;
    }
    return result;
}

} // namespace

RuntimeError::RuntimeError(int number) : RuntimeError(number, errorText(number)) {}

RuntimeError::RuntimeError(int number, QString description)
    : number_(number), description_(std::move(description)), utf8_(description_.toUtf8())
{
}

QString errorText(int number, const QStringList &arguments, Wording wording)
{
    return filled(standingText(number, wording), arguments);
}

void raise(int number, const QStringList &arguments, Wording wording)
{
    throw RuntimeError(number, errorText(number, arguments, wording));
}

} // namespace runtime
