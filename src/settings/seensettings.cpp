// SPDX-License-Identifier: MIT
#include "settings/seensettings.h"

#include "platform/config.h"

namespace teskel
{

namespace
{

std::optional<QString> valueIn(const Config& config, const QString& key)
{
    return config.hasKey(key) ? std::optional(config.readEntry(key)) : std::nullopt;
}

} // namespace

void SeenSettings::note(const Config& config, const QString& group, const QString& key,
                        const QString& value)
{
    _seen.insert({group, key}, {valueIn(config, key), value});
}

void SeenSettings::follow(const QString& group, const QString& key, const QString& value)
{
    _seen[{group, key}].own = value;
}

void SeenSettings::write(Config& config, const QString& group, const QString& key,
                         const QString& value)
{
    const auto seen = _seen.constFind({group, key});
    const std::optional<QString> present = valueIn(config, key);
    if (seen != _seen.cend() && seen->own == value && present && present != seen->present)
        return;
    config.writeEntry(key, value);
    _written.insert({group, key}, {valueIn(config, key), value});
}

void SeenSettings::settle(bool isInFile)
{
    if (isInFile)
        _seen.insert(_written);
    _written.clear();
}

} // namespace teskel
