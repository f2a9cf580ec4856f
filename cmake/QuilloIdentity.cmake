# The program's identity: the single source for the version resources, the about box, mails, printed pages,
# the installer and the manifests of a release. The version is that of the project.
set(QUILLO_NAME "Quillo")
set(QUILLO_PUBLISHER "Marrowind")
set(QUILLO_COPYRIGHT_YEAR "2026")
set(QUILLO_LICENSE "Freeware")
set(QUILLO_DESCRIPTION "Sticky notes for the Windows desktop")
# The host name of the publisher's site. It is under a reserved name, so that it can never belong to anyone else; a
# publisher of the program replaces it.
set(QUILLO_HOST "www.marrowind.example")
# The system identifies the program's balloons and its task bar buttons by this name.
set(QUILLO_APP_ID "Marrowind.Quillo")
