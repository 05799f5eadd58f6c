# What only the owner can decide. These are placeholders that let the validators work: replace them before
# a package leaves the house. Nothing else in the tree repeats them.

# who answers for the package
set(KORVANE_MAINTAINER "Korvane maintainers <maintainers@korvane.example>")
# where the program is at home, where faults are told, and where the pictures of docs/images are served
set(KORVANE_HOMEPAGE "https://korvane.example/")
set(KORVANE_FAULTS "https://korvane.example/issues")
set(KORVANE_PICTURES "https://korvane.example/images")
# the name of the program among all others: a domain of the owner, turned round
set(KORVANE_COMPONENT "com.example.korvane_editor")
# the licence of the metadata alone, which catalogues copy
set(KORVANE_METADATA_LICENSE "FSFAP")
# whose the program is, and its licence: none is chosen yet
set(KORVANE_OWNER "2026 the owner of Korvane")
set(KORVANE_LICENSE "The licence of this program has not been chosen yet. Until its owner does so, all rights
 are reserved: ask the owner before you copy, change or pass on the program.")
