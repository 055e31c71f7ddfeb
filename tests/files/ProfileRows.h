#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// What must hold for private-profile files whoever reads and writes them, the system or the program itself:
/// the value of key "k" in section "S" of a file.
struct ProfileReadRow {
    std::string_view what;
    std::string bytes;
    std::string value;
};

inline std::vector<ProfileReadRow> ProfileReadRows()
{
    const std::string x1022(1022, 'x');
    return {
        {"other line ends", "[S]\nk=v", "v"},
        {"other case", "[s]\r\nK=v\r\n", "v"},
        {"blanks", "\t[S] \r\n\t k\t =  v v \t\r\n", "v v"},
        {"blanks inside the heading", "[ S ]\r\nk=v\r\n", "v"},
        {"text behind the heading", "[S] ; x\r\nk=v\r\n", "v"},
        {"number with its blank", "[S]\r\nk= 100\r\n", "100"},
        {"double quotes", "[S]\r\nk= \" v \" \r\n", " v "},
        {"one pair only", "[S]\r\nk=\"'v'\"\r\n", "'v'"},
        {"unlike quotes", "[S]\r\nk=\"v'\r\n", "\"v'"},
        {"lone quote", "[S]\r\nk=\"\r\n", "\""},
        {"quotes around a part", "[S]\r\nk=\"a\" b\r\n", "\"a\" b"},
        {"remarks", "[S]\r\n;k=1\r\n ;k=2\r\nk=v ;x\r\n", "v ;x"},
        {"another sign", "[S]\r\nk=a=b\r\n", "a=b"},
        {"first of two keys", "[S]\r\nk=\r\nk=2\r\n", ""},
        {"second section of the name", "[S]\r\na=1\r\n[T]\r\nk=1\r\n[S]\r\nk=2\r\n", ""},
        {"key before all sections", "k=1\r\n[S]\r\nk=2\r\n", "2"},
        {"longer names", "[SS]\r\nk=1\r\n[S]\r\nk k=2\r\nkk=3\r\nk=4\r\n", "4"},
        {"heading that is not closed", "[S\r\nk=1\r\n", ""},
        {"no key", "[S]\r\na=1\r\n", ""},
        {"empty file", "", ""},
        {"text ends at NUL", std::string("[S]\r\nk=a\0b\r\n", 12), "a"},
        {"1023 characters", "[S]\r\nk=" + x1022 + "yz\r\n", x1022 + "y"},
        {"blanks and quotes do not count", "[S]\r\nk=   '" + x1022 + "yz'\r\n", x1022 + "y"},
        {"blank where it is cut", "[S]\r\nk=" + x1022 + " z\r\n", x1022 + " "},
    };
}

/// A value that is written to key "k" of section "S", and what is read back of it then. The bytes are not
/// told: Wine drops blanks before a value and blank lines, and ends every line in CR LF.
struct ProfileWriteRow {
    std::string_view what;
    std::string bytes;
    std::string value;
    std::string readBack;
    /// Lines of the old file that are in the new one, each as a whole and in this order.
    std::vector<std::string> kept;
};

inline std::vector<ProfileWriteRow> ProfileWriteRows()
{
    return {
        {"new file", "", "v", "v", {}},
        {"number with its blank", "[S]\r\nk=1\r\n", " 100", "100", {"[S]"}},
        {"new value in quotes", "[S]\r\nk=1\r\n", "' 2 '", " 2 ", {"[S]"}},
        {"first of two keys", "[S]\r\nK=1\r\nk=2\r\n", "3", "3", {"[S]", "k=2"}},
        {"first of two sections",
         "[s]\r\na=1\r\n[T]\r\nk=1\r\n[S]\r\nk=2\r\n",
         "3",
         "3",
         {"[s]", "a=1", "[T]", "k=1", "[S]", "k=2"}},
        {"new section behind an open line", "x=0\r\n[T]\r\nk=1", "2", "2", {"x=0", "[T]", "k=1"}},
        {"remarks and bytes of others",
         ";\xE4\x01 #\r\n[S]\r\n;k=0\r\nk=1\r\n?\r\n",
         "2",
         "2",
         {";\xE4\x01 #", "[S]", ";k=0", "?"}},
    };
}

} // namespace quorvane
