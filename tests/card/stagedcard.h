// SPDX-License-Identifier: MIT
#pragma once

#include "tests/platform/stagedroots.h"

#include <QTemporaryDir>

#include <memory>

namespace teskel::test
{

/// A memory card for tests: a real file system on a loop device where the machine allows that, else
/// a directory that the staged mount table calls a card.
///
/// Real cards need a mount namespace of the test's own, so that nothing is left behind.
class StagedCard
{
public:
    /// Gives this process mounts of its own; call it before the first thread starts.
    /// @return whether real cards can be had
    static bool enterOwnNamespace();

    StagedCard();
    Q_DISABLE_COPY_MOVE(StagedCard)
    ~StagedCard();

    [[nodiscard]] bool isReal() const { return _isReal; }
    [[nodiscard]] bool insert();
    /// Unmounts the card; with `lazily` also while files on it are open.
    [[nodiscard]] bool pull(bool lazily);

    /// The mount point.
    [[nodiscard]] QString path() const { return _home.filePath(QStringLiteral("card")); }
    /// Where dictionaries lie on a card.
    [[nodiscard]] QString dictionaries() const;
    /// Where the platform layer must look to see this card.
    [[nodiscard]] StorageRoots roots() const;

private:
    [[nodiscard]] bool makeImage() const;
    [[nodiscard]] QString image() const { return _home.filePath(QStringLiteral("image")); }
    [[nodiscard]] QString mountedDevice() const;

    static bool _hasNamespace;
    QTemporaryDir _home;
    StagedRoots _stage;
    bool _isReal = false;
};

} // namespace teskel::test
