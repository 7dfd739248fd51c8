// Zip archives for tests, hostile ones too.
#pragma once

#include <archive.h>
#include <archive_entry.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace brantlow {

struct ZipEntry {
    std::string name;
    std::string bytes;
    std::string linksTo = {};  // a link where it is not empty
};

inline void WriteZip(const std::string& file, const std::vector<ZipEntry>& entries) {
    archive* const zip = archive_write_new();
    archive_write_set_format_zip(zip);
    if (archive_write_open_filename(zip, file.c_str()) != ARCHIVE_OK) throw std::runtime_error(file);
    for (const ZipEntry& row : entries) {
        archive_entry* const entry = archive_entry_new();
        archive_entry_set_pathname(entry, row.name.c_str());
        archive_entry_set_perm(entry, 0644);
        archive_entry_set_size(entry, static_cast<la_int64_t>(row.bytes.size()));
        archive_entry_set_filetype(entry, row.linksTo.empty() ? AE_IFREG : AE_IFLNK);
        if (!row.linksTo.empty()) archive_entry_set_symlink(entry, row.linksTo.c_str());
        const bool isWritten = archive_write_header(zip, entry) == ARCHIVE_OK;
        if (isWritten && row.linksTo.empty()) archive_write_data(zip, row.bytes.data(), row.bytes.size());
        archive_entry_free(entry);
        if (!isWritten) throw std::runtime_error(row.name);
    }
    archive_write_close(zip);
    archive_write_free(zip);
}

}  // namespace brantlow
