#pragma once

/// Every header field of a UDS-1992 file, once. The member, its getter and its setter (uds_fields.h), the row of the
/// field table (uds_field_table.h) and the record's double-precision copy (signal/data_fields.h) all come from here.
///
/// The order is the order in the file; offsets are running sums of the widths, from 0 in the file header and from 12,
/// after the tag, in the other two records. Frozen: files on disk depend on order, widths and types.
///
///   TEXT(record, NAME, width, default)   characters, `width` bytes
///   INTEGER(record, NAME, default)       4 bytes, two's complement
///   REAL(record, NAME)                   4 bytes, single precision, default 0

// One field per line, comments in a column.
// clang-format off

/// The seventeen fields of one vehicle or component and its occupant; `N` is 1 or 2.
#define QUORVEL_UDS_COMPONENT_FIELDS(TEXT, INTEGER, REAL, record, N, restraint)                 \
    INTEGER(record, CMPNO##N, 0)            /* vehicle or component number */                   \
    TEXT(record, CMPTYP##N, 2, "")          /* component type code */                           \
    TEXT(record, CMPDSC##N, 30, "")         /* description */                                   \
    TEXT(record, MAKE##N, 15, "")                                                               \
    TEXT(record, MODEL##N, 25, "")                                                              \
    INTEGER(record, YEAR##N, 0)             /* model year, four digits once read or written */  \
    TEXT(record, BODY##N, 25, "")           /* body type */                                     \
    TEXT(record, ENGINE##N, 4, "")          /* engine type */                                   \
    REAL(record, VEHWGT##N)                 /* weight, kg */                                    \
    REAL(record, VEHSPD##N)                 /* speed, km/h */                                   \
    TEXT(record, OCCTYP##N, 6, "")          /* occupant type */                                 \
    INTEGER(record, OCCSIZ##N, 0)           /* occupant size */                                 \
    TEXT(record, OCCSEX##N, 1, "")          /* occupant's one-character code */                 \
    REAL(record, OCCWGT##N)                 /* occupant's weight, kg */                         \
    TEXT(record, OCCAGE##N, 2, "")          /* occupant's two-character code */                 \
    TEXT(record, RSTPRI##N, 20, restraint)  /* first restraint */                               \
    TEXT(record, RSTSEC##N, 20, restraint)  /* second restraint */

#define QUORVEL_UDS_FIELDS(TEXT, INTEGER, REAL)                                                                 \
    TEXT(File, FILEID, 12, "UDS-1992")  /* file identification, doubles as the record's tag */                  \
    INTEGER(File, FILEVER, 1)           /* file version */                                                      \
    TEXT(File, FILEFORM, 10, "X-Y")     /* "X-Y": X and Y blocks; "Y": Y blocks only */                         \
    TEXT(File, NUMFORM, 5, "")          /* "IEEE", "VAX" or "SUN"; the writer sets it */                        \
    TEXT(File, DIMSYS, 3, "MET")        /* dimension system */                                                  \
    TEXT(File, TSTSRC, 15, "USER DATA") /* test source */                                                       \
    INTEGER(File, TSTNO, 0)             /* test number */                                                       \
    TEXT(File, TSTNAM, 12, "0")         /* test name */                                                         \
    TEXT(File, TITLE, 70, "")                                                                                   \
    TEXT(File, TSTPRF, 25, "OTHER")  /* test performer */                                                       \
    TEXT(File, TSTREF, 10, "")       /* test reference number */                                                \
    TEXT(File, TSTCFN, 3, "OTH")     /* test configuration code */                                              \
    INTEGER(File, IMPANG, 0)         /* impact angle, degrees */                                                \
    REAL(File, CLSSPD)               /* closing speed, km/h */                                                  \
    QUORVEL_UDS_COMPONENT_FIELDS(TEXT, INTEGER, REAL, File, 1, "NONE")                                          \
    REAL(File, INJ1)          /* occupant injury values 1 to 6; 1 is the head injury criterion, 2 and 3 its */  \
    REAL(File, INJ2)          /* times in milliseconds */                                                       \
    REAL(File, INJ3)                                                                                            \
    REAL(File, INJ4)                                                                                            \
    REAL(File, INJ5)                                                                                            \
    REAL(File, INJ6)                                                                                            \
    TEXT(File, AIS, 1, "")    /* trailing one-character code */                                                 \
    QUORVEL_UDS_COMPONENT_FIELDS(TEXT, INTEGER, REAL, SecondComponent, 2, "")                                   \
    INTEGER(Curve, ICHAN, 1)                /* channel number */                                                \
    TEXT(Curve, CHANFORM, 10, "X-Y")        /* channel form */                                                  \
    INTEGER(Curve, CURNO, 0)                /* curve number */                                                  \
    TEXT(Curve, CURNAM, 12, "0")            /* curve name */                                                    \
    TEXT(Curve, SENATT, 30, "")             /* sensor attachment */                                             \
    TEXT(Curve, SENLOC, 2, "")              /* sensor location code */                                          \
    INTEGER(Curve, SENNUM, 0)               /* sensor number */                                                 \
    INTEGER(Curve, BANDNO, 0)               /* band number */                                                   \
    INTEGER(Curve, GAGNO, 0)                /* gauge number */                                                  \
    TEXT(Curve, AXIS, 2, "")                /* axis code */                                                     \
    TEXT(Curve, YTYPE, 20, "")              /* physical quantity of Y */                                        \
    TEXT(Curve, YUNITS, 20, "")                                                                                 \
    TEXT(Curve, XTYPE, 20, "TIME")          /* quantity of X */                                                 \
    TEXT(Curve, XUNITS, 20, "SECONDS")                                                                          \
    TEXT(Curve, STATUS, 20, "COMPUTED")     /* data status word or code */                                      \
    TEXT(Curve, CURTYP, 20, "TIME SERIES")  /* curve type */                                                    \
    TEXT(Curve, DESC, 70, "COMPUTED / SIMULATED DATA")                                                          \
    INTEGER(Curve, NFP, 0)  /* number of the first data point */                                                \
    INTEGER(Curve, NLP, 0)  /* number of the last data point */                                                 \
    REAL(Curve, delt)       /* time step between samples, in XUNITS */                                          \
    REAL(Curve, INIVEL)     /* initial velocity, km/h or mph by DIMSYS */                                       \
    REAL(Curve, PREFIL)     /* prefilter frequency, Hz */                                                       \
    REAL(Curve, FCUT)       /* filter cutoff frequency, Hz */                                                   \
    REAL(Curve, FCOR)       /* filter corner frequency, Hz */                                                   \
    REAL(Curve, FSTP)       /* filter stop frequency, Hz */                                                     \
    REAL(Curve, SCLFAC)     /* scale factor */                                                                  \
    INTEGER(Curve, ID1, 0)  /* user integers 1 to 5 */                                                          \
    INTEGER(Curve, ID2, 0)                                                                                      \
    INTEGER(Curve, ID3, 0)                                                                                      \
    INTEGER(Curve, ID4, 0)                                                                                      \
    INTEGER(Curve, ID5, 0)                                                                                      \
    REAL(Curve, RD1)        /* user reals 1 to 5; a reader gives all five the first one's value */              \
    REAL(Curve, RD2)                                                                                            \
    REAL(Curve, RD3)                                                                                            \
    REAL(Curve, RD4)                                                                                            \
    REAL(Curve, RD5)                                                                                            \
    TEXT(Curve, CD1, 20, "")  /* user texts 1 and 2 */                                                          \
    TEXT(Curve, CD2, 70, "")

// clang-format on
