#include "layer/fonts/key_value.h"

bool KeyValue::hasKey(const std::string& key) const {
    return entries && entries->count(key) != 0;
}

std::string KeyValue::value(const std::string& key, const std::string& defaultValue) const {
    if (!entries) {
        return defaultValue;
    }
    const auto found = entries->find(key);
    return found == entries->end() ? defaultValue : found->second;
}

void KeyValue::setValue(const std::string& key, const std::string& value) {
    if (!entries) {
        entries = std::make_shared<Map>();
    }
    detach();
    (*entries)[key] = value;
}

void KeyValue::detach() {
    if (entries && entries.use_count() > 1) {
        entries = std::make_shared<Map>(*entries);
    }
}
