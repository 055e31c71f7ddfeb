#include "platform/posix/LanguageName.h"

namespace quorvane {
namespace {

struct Language {
    std::string_view code;
    std::string_view name;
};

constexpr Language kLanguages[] = {
    {"", "English"},      {"C", "English"},    {"POSIX", "English"}, {"ar", "Arabic"},   {"bg", "Bulgarian"},
    {"ca", "Catalan"},    {"cs", "Czech"},     {"da", "Danish"},     {"de", "German"},   {"el", "Greek"},
    {"en", "English"},    {"es", "Spanish"},   {"et", "Estonian"},   {"fa", "Persian"},  {"fi", "Finnish"},
    {"fr", "French"},     {"he", "Hebrew"},    {"hi", "Hindi"},      {"hr", "Croatian"}, {"hu", "Hungarian"},
    {"id", "Indonesian"}, {"it", "Italian"},   {"ja", "Japanese"},   {"ko", "Korean"},   {"lt", "Lithuanian"},
    {"lv", "Latvian"},    {"ms", "Malay"},     {"nb", "Norwegian"},  {"nl", "Dutch"},    {"nn", "Norwegian"},
    {"no", "Norwegian"},  {"pl", "Polish"},    {"pt", "Portuguese"}, {"ro", "Romanian"}, {"ru", "Russian"},
    {"sk", "Slovak"},     {"sl", "Slovenian"}, {"sr", "Serbian"},    {"sv", "Swedish"},  {"th", "Thai"},
    {"tr", "Turkish"},    {"uk", "Ukrainian"}, {"vi", "Vietnamese"}, {"zh", "Chinese"},
};

} // namespace

std::string LanguageName(std::string_view localeName)
{
    const std::string_view code = localeName.substr(0, localeName.find_first_of("_.@-"));
    for (const Language& language : kLanguages) {
        if (language.code == code)
            return std::string(language.name);
    }
    return std::string(code);
}

} // namespace quorvane
