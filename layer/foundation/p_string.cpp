#include "layer/foundation/p_string.h"

#include <cstdarg>
#include <cstdio>
#include <cwchar>
#include <functional>
#include <string_view>
#include <utility>

#include "layer/foundation/utf8.h"

class PStringPrivate {
public:
    explicit PStringPrivate(std::wstring text = std::wstring()) : text(std::move(text)) {}
    virtual ~PStringPrivate() = default;
    PStringPrivate(const PStringPrivate&) = default;
    PStringPrivate& operator=(const PStringPrivate&) = default;

    std::wstring text;
};

PString::PString() : d(std::make_shared<PStringPrivate>()) {}

PString::PString(const std::wstring& text) : d(std::make_shared<PStringPrivate>(text)) {}

PString::PString(const std::string& text) : d(std::make_shared<PStringPrivate>(str2wstr(text))) {}

PString::PString(const wchar_t* text, unsigned int length)
    : d(std::make_shared<PStringPrivate>(!text    ? std::wstring()
                                         : length ? std::wstring(text, length)
                                                  : std::wstring(text))) {}

PString::PString(const char* text, unsigned int length)
    : d(std::make_shared<PStringPrivate>(
          !text ? std::wstring()
                : str2wstr(length ? std::string(text, length) : std::string(text)))) {}

PString::PString(char character, int count)
    : d(std::make_shared<PStringPrivate>(
          count > 0 ? std::wstring(count, static_cast<unsigned char>(character))
                    : std::wstring())) {}

PString::PString(const PString& other) = default;
PString& PString::operator=(const PString& other) = default;
PString::~PString() = default;

const std::wstring& PString::text() const {
    return d->text;
}

std::wstring& PString::text() {
    return d->text;
}

int PString::size() const {
    return static_cast<int>(text().size());
}

std::string PString::toStdString() const {
    return wstr2str(text());
}

std::wstring PString::toStdWString() const {
    return text();
}

wchar_t PString::at(int index) const {
    return text().at(static_cast<std::size_t>(index));
}

wchar_t& PString::at(int index) {
    return text().at(static_cast<std::size_t>(index));
}

wchar_t PString::operator[](int index) const {
    return text()[static_cast<std::size_t>(index)];
}

wchar_t& PString::operator[](int index) {
    return text()[static_cast<std::size_t>(index)];
}

int PString::find(const PString& needle, int from) const {
    if (from < 0) {
        from = 0;
    }
    const std::size_t position = text().find(needle.text(), static_cast<std::size_t>(from));
    return position == std::wstring::npos ? -1 : static_cast<int>(position);
}

std::size_t PString::hash() const {
    const std::wstring& chars = text();
    return std::hash<std::string_view>()(std::string_view(
        reinterpret_cast<const char*>(chars.data()), chars.size() * sizeof(wchar_t)));
}

PString::iterator PString::begin() {
    return text().begin();
}
PString::iterator PString::end() {
    return text().end();
}
PString::const_iterator PString::begin() const {
    return text().begin();
}
PString::const_iterator PString::end() const {
    return text().end();
}
PString::reverse_iterator PString::rbegin() {
    return text().rbegin();
}
PString::reverse_iterator PString::rend() {
    return text().rend();
}
PString::const_reverse_iterator PString::rbegin() const {
    return text().rbegin();
}
PString::const_reverse_iterator PString::rend() const {
    return text().rend();
}

PString& PString::replace(const PString& from, const PString& to) {
    // An empty needle matches everywhere and would never let the loop end.
    if (from.isEmpty()) {
        return *this;
    }
    const std::wstring needle = from.text();
    const std::wstring replacement = to.text();
    std::wstring& chars = text();
    for (std::size_t position = chars.find(needle); position != std::wstring::npos;
         position = chars.find(needle, position + 1)) {
        chars.replace(position, needle.size(), replacement);
    }
    return *this;
}

PString& PString::removeFromRight(const PString& prefix) {
    const std::wstring& start = prefix.text();
    if (!start.empty() && std::as_const(*this).text().compare(0, start.size(), start) == 0) {
        text().erase(0, start.size());
    }
    return *this;
}

PString& PString::operator+=(const PString& tail) {
    const std::wstring appended = tail.text();
    text() += appended;
    return *this;
}

bool PString::operator==(const PString& other) const {
    return text() == other.text();
}

PString PString::format(const char* format, ...) {
    va_list args;
    va_start(args, format);
    va_list measure;
    va_copy(measure, args);
    const int length = std::vsnprintf(nullptr, 0, format, measure);
    va_end(measure);
    std::string formatted;
    if (length > 0) {
        formatted.resize(static_cast<std::size_t>(length));
        std::vsnprintf(formatted.data(), formatted.size() + 1, format, args);
    }
    va_end(args);
    return PString(formatted);
}

PString operator+(const PString& left, const PString& right) {
    PString joined(left);
    joined += right;
    return joined;
}
