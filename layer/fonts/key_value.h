#pragma once

#include <memory>
#include <string>
#include <unordered_map>

// A small string map shared between copies; a change first gives the changing handle a map
// of its own. Most glyphs carry no properties, so an empty map costs no allocation.
class KeyValue {
public:
    bool hasKey(const std::string& key) const;
    std::string value(const std::string& key,
                      const std::string& defaultValue = std::string()) const;
    void setValue(const std::string& key, const std::string& value);
    void detach();

private:
    using Map = std::unordered_map<std::string, std::string>;
    std::shared_ptr<Map> entries;
};
