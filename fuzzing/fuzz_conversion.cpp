// SPDX-License-Identifier: MIT
// Any bytes as a source's text, on its way to Latin-1 and through the markup of other programs.
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "lexicon/sources/stardict/markuprewriter.h"
#include "lexicon/sources/stardict/stardictarticle.h"
#include "lexicon/text/latin1converter.h"

using namespace teskel;
using namespace teskel::fuzz;

namespace
{
void convert(std::string_view text)
{
    for (const LatinForm form : {LatinForm::LetterReferences, LatinForm::Plain}) {
        Latin1Converter converter(form);
        for (const auto kind :
             {Latin1Converter::Text::Headword, Latin1Converter::Text::PlainArticle,
              Latin1Converter::Text::MarkupArticle}) {
            const std::string converted = converter.converted(text, kind);
            require(converted.find('\0') == std::string::npos);
            if (kind == Latin1Converter::Text::Headword)
                require(converted.find_first_of("\n\t") == std::string::npos &&
                        !converted.starts_with(' ') && !converted.ends_with(' '));
        }
    }
}
} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    convert(text);
    convert(markup::fromHtml(text));
    markup::fromXdxf(text);
    markup::fromPango(text);
    StarDictArticle::parse(text, "");
    StarDictArticle::parse(text, "mthxgl");
    return 0;
}
