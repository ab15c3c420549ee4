# The Debian packages triaxlab and triaxlab-doc, of the two components.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME triaxlab)
newest(Maintainer CPACK_PACKAGE_CONTACT)
set(CPACK_COMPONENTS_ALL programs doc)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)

# Each of the two has a first line of its own; this one stands for none.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "triaxlab built using CMake")

# The libraries that are linked are found by dpkg-shlibdeps; these are loaded or read. Without AR PL UMing a page would
# have another Chinese, without Liberation another Latin. The toolkit's way to the screen is a package of its own.
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME triaxlab)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_DEPENDS "fonts-arphic-uming, fonts-liberation, qt6-qpa-plugins")
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_RECOMMENDS
  "fonts-wqy-microhei | fonts-noto-cjk, libxlsxwriter4, qt6-translations-l10n")
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SUGGESTS "cups-client, triaxlab-doc")
set(CPACK_DEBIAN_PROGRAMS_DESCRIPTION "post-processor of a soil-mechanics laboratory
triaxlab reads the raw databases that eight kinds of triaxial apparatus leave
on disk, reduces the readings to stress-strain curves, finds failure points,
Mohr circles, cohesion and the angle of friction, lets a technician correct
curves and envelopes by hand, keeps everything in project files, and prints
the curve pages of the report. Unconfined-compression, K0 and TK0 tests are
imported, reduced, corrected, saved and printed as well.

The windows speak Chinese. triaxlab-cli does the same work without windows.")

set(CPACK_DEBIAN_DOC_PACKAGE_NAME triaxlab-doc)
set(CPACK_DEBIAN_DOC_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOC_PACKAGE_ARCHITECTURE all)
set(CPACK_DEBIAN_DOC_DESCRIPTION "post-processor of a soil-mechanics laboratory (manual, file formats)
triaxlab reduces, corrects, keeps and prints the tests of a soil-mechanics
laboratory.

This package has the technician's manual in Chinese as a PDF, the bytes of
every file that is read or written, and pages about large archives and about
playing scripts against the windows.")
include(CPack)
