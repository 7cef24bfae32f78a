// SPDX-License-Identifier: MIT
// Copyright (c) 2026 the KestWidgets authors

// Runs a fuzzer on each file of a folder, or on each given file, once.

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <cstdio>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

int main(int argc, char **argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    QStringList files;
    for (int i = 1; i < argc; ++i) {
        const QString path = QString::fromLocal8Bit(argv[i]);
        if (!QFileInfo(path).isDir()) {
            files.append(path);
            continue;
        }
        for (const QFileInfo &file : QDir(path).entryInfoList(QDir::Files, QDir::Name))
            files.append(file.filePath());
    }
    for (const QString &name : qAsConst(files)) {
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "cannot read %s\n", qPrintable(name));
            return 1;
        }
        std::printf("%s\n", qPrintable(name));
        std::fflush(stdout);
        const QByteArray bytes = file.readAll();
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(bytes.constData()),
                               size_t(bytes.size()));
    }
    // A fuzzer that is given nothing would pass for ever.
    return files.isEmpty() ? 1 : 0;
}
