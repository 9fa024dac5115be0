# Installation: libraries, headers, package configuration.
