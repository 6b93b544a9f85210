#pragma once

#include <QString>

#include <libheif/heif.h>

namespace nubo {

// libheif, loaded when a HEIC image is first read or written. Linked, it
// and the codecs it brings (x265, libde265, aom, dav1d and theirs: some
// twenty libraries, libde265 building its tables as it loads) would be
// loaded by every start of every program for what few shots need.
// Each function keeps libheif's own name: `heif.heif_context_alloc()`.
struct HeifLibrary {
#define NUBO_HEIF_FUNCTIONS(X)                                                                   \
    X(heif_check_filetype)                                                                       \
    X(heif_context_alloc)                                                                        \
    X(heif_context_free)                                                                         \
    X(heif_context_set_maximum_image_size_limit)                                                 \
    X(heif_context_read_from_memory_without_copy)                                                \
    X(heif_context_get_primary_image_handle)                                                     \
    X(heif_context_get_encoder_for_format)                                                       \
    X(heif_context_encode_image)                                                                 \
    X(heif_context_add_exif_metadata)                                                            \
    X(heif_context_write)                                                                        \
    X(heif_encoder_set_lossy_quality)                                                            \
    X(heif_encoder_release)                                                                      \
    X(heif_image_handle_release)                                                                 \
    X(heif_image_handle_get_width)                                                               \
    X(heif_image_handle_get_height)                                                              \
    X(heif_image_handle_has_alpha_channel)                                                       \
    X(heif_image_handle_get_list_of_metadata_block_IDs)                                          \
    X(heif_image_handle_get_metadata_size)                                                       \
    X(heif_image_handle_get_metadata)                                                            \
    X(heif_decode_image)                                                                         \
    X(heif_image_create)                                                                         \
    X(heif_image_add_plane)                                                                      \
    X(heif_image_get_plane)                                                                      \
    X(heif_image_get_plane_readonly)                                                             \
    X(heif_image_get_width)                                                                      \
    X(heif_image_get_height)                                                                     \
    X(heif_image_release)
#define NUBO_HEIF_POINTER(name) decltype(&::name) name = nullptr;
    NUBO_HEIF_FUNCTIONS(NUBO_HEIF_POINTER)
#undef NUBO_HEIF_POINTER

    // Why the library could not be loaded (naming the package to install);
    // empty once it is, and then every function is there.
    QString problem;

    // Loaded on the first call (from any thread), kept for the process.
    static const HeifLibrary& instance();

    // Whether the first bytes of a file are an ISO media file's ("ftyp"
    // box), the only files worth asking libheif about.
    static bool mayBeHeif(const char* head, qsizetype size);
};

} // namespace nubo
