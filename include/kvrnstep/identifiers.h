/*
 * The identifiers of the type library, the classes and their interfaces, the names by which
 * scripts create the classes, and the numbers of the members. Hosts bind to them, so they never
 * change.
 *
 * `identifier` is a macro or function of yours that takes the eleven numbers of an identifier.
 */
#ifndef KVRNSTEP_IDENTIFIERS_H
#define KVRNSTEP_IDENTIFIERS_H

/* For C and resource compilers too. NOLINTBEGIN(cppcoreguidelines-macro-usage) */

#define KVRNSTEP_LIBRARY_ID(identifier) \
  identifier(0x7C40F76B, 0xE8F1, 0x4A46, 0x9D, 0x1D, 0x08, 0xF5, 0x4F, 0xAF, 0xC6, 0xA7)
#define KVRNSTEP_LIBRARY_MAJOR 5
#define KVRNSTEP_LIBRARY_MINOR 0
#define KVRNSTEP_LIBRARY_LOCALE 1033

#define KVRNSTEP_CLASS_LISTWRIGHT(identifier) \
  identifier(0xC333D121, 0xDF97, 0x4586, 0x8A, 0x86, 0x2D, 0x28, 0xE7, 0x55, 0x03, 0x0D)
#define KVRNSTEP_INTERFACE_LISTWRIGHT(identifier) \
  identifier(0x4FBFC97E, 0xB9B6, 0x4206, 0x8A, 0x78, 0xCF, 0x2E, 0x0B, 0xED, 0xE7, 0x8E)
#define KVRNSTEP_NAME_LISTWRIGHT "kvrnstep.Listwright"

#define KVRNSTEP_CLASS_CICON(identifier) \
  identifier(0x29629AD9, 0x6858, 0x4E5B, 0x9C, 0xE5, 0x48, 0x37, 0x75, 0x16, 0x32, 0xE3)
#define KVRNSTEP_INTERFACE_CICON(identifier) \
  identifier(0xFF798F12, 0xC1F9, 0x448B, 0xA0, 0xC2, 0x5C, 0xF5, 0x0D, 0x41, 0x8E, 0x25)
#define KVRNSTEP_NAME_CICON "kvrnstep.cIcon"

/* Members, as late-bound callers number them. */
#define KVRNSTEP_PLUG_NAME_VERSION 0x60030005
#define KVRNSTEP_SHOW_LISTWRIGHT_DIALOG 0x60030006
#define KVRNSTEP_REQUEST_PROGRAM_ICON 0x68030001

/* NOLINTEND(cppcoreguidelines-macro-usage) */
#endif
