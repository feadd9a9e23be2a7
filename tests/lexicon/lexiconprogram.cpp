// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"

#include <QFile>
#include <QProcess>

using namespace Qt::StringLiterals;

namespace teskel::test
{

bool LexiconProgram::buildSmallLexicon() const
{
    return run({u"build"_s, QStringLiteral(TEST_DATA "/small.tsv"), u"-o"_s, path("small.PDB")})
               .code == 0;
}

ProgramResult LexiconProgram::run(const QStringList& arguments, const QByteArray& input) const
{
    QProcess process;
    return run(process, arguments, input);
}

ProgramResult LexiconProgram::run(QProcess& process, const QStringList& arguments,
                                  const QByteArray& input) const
{
    process.setWorkingDirectory(directory());
    return runToEnd(process, QStringLiteral(TESKEL_LEXICON), arguments, input);
}

QString LexiconProgram::path(const char* name) const
{
    return _directory.filePath(QString::fromUtf8(name));
}

QByteArray LexiconProgram::bytesOf(const char* name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

QStringList words(std::initializer_list<const char*> texts)
{
    QStringList result;
    for (const char* text : texts)
        result += QString::fromUtf8(text);
    return result;
}

} // namespace teskel::test
