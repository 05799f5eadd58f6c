# CPack runs this on the files of the package, to meet Debian's policy beyond the usual folders.
set(share ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(documents ${share}/doc/${CPACK_PACKAGE_NAME})

# Debian's zsh looks for the completions of packages in a folder of its own
file(MAKE_DIRECTORY ${share}/zsh)
file(RENAME ${share}/zsh/site-functions ${share}/zsh/vendor-completions)

execute_process(COMMAND date -u -R -d ${CPACK_RELEASE_DATE}
                OUTPUT_VARIABLE date OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(WRITE ${documents}/changelog.Debian
"${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * New version; see changelog.gz.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
file(RENAME ${documents}/CHANGELOG.md ${documents}/changelog)

file(GLOB compressed ${documents}/changelog* ${share}/man/man1/*)
execute_process(COMMAND gzip -9n ${compressed} COMMAND_ERROR_IS_FATAL ANY)
