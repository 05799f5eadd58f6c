# What only the owner can decide. These are placeholders that let the validators work: replace them before
# publishing a package. Nothing else in the tree repeats them.

# who maintains the package
set(KORVANE_MAINTAINER "Korvane maintainers <maintainers@korvane.example>")
# the home page, where faults are reported, and where the pictures of docs/images are served
set(KORVANE_HOMEPAGE "https://korvane.example/")
set(KORVANE_FAULTS "https://korvane.example/issues")
set(KORVANE_PICTURES "https://korvane.example/images")
# the unique name of the program, with a domain of the owner in reverse
set(KORVANE_COMPONENT "com.example.korvane_editor")
# the licence of the metadata only, which catalogues copy
set(KORVANE_METADATA_LICENSE "FSFAP")
# the owner of the program and its licence: none is chosen yet
set(KORVANE_OWNER "2026 the owner of Korvane")
set(KORVANE_LICENSE "The licence of this program has not been chosen yet. Until its owner does so, all rights
 are reserved: ask the owner before you copy, change or pass on the program.")
