"""The commands and operations that are tried, each with the state that it starts from."""

from typing import NamedTuple



def files(scale=1):
    """The texts that are loaded, name to content; `scale` multiplies their records."""
    colours, answers = ("red", "blue", "green"), ("yes", "no")
    words = "size,age,answer\nred,1.5,yes\nblue,NA,no\nred,4,yes\ngreen,?,no\nred,2.25,no\n"
    words += "".join(f"{colours[i % 3]},{i}.5,{answers[i % 2]}\n" for i in range(20 * scale))
    return {
        "words.csv": words,
        "numbers.csv": "a,b,c\n"
        + "".join(f"{i}.25,{i * i},{(i * 37) % 11}\n" for i in range(40 * scale)),
        "others.csv": "a,b,c\n"
        + "".join(f"-{i}.5,{i + 0.125},{i % 7}\n" for i in range(60 * scale)),
        "across.csv": "a,1,2,3,4\nb,5,6,7,8\nc,9,10,11,12\n",
        "series.csv": "value\n" + "".join(f"{t}.25\n" for t in range(60 * scale)),
        "later.csv": "value\n" + "".join(f"{t}.75\n" for t in range(100, 100 + 40 * scale)),
    }


RUN = ("--run", "run.db")
LOAD_NUMBERS = ("load", "numbers.csv", *RUN)
LOAD_WORDS = ("load", "words.csv", *RUN, "--problem", "classification")
LOAD_SPLIT = (
    *("load", "words.csv", *RUN, "--problem", "classification"),
    *("--testing-share", "0.3", "--seed", "5", "--normalize", "zscore"),
)
LOAD_SERIES = ("load", "series.csv", *RUN, "--problem", "timeseries")
LOAD_LATER = ("load", "later.csv", *RUN, "--set", "testing")
FILL = ("missing", "run.db", "age", "--replace", "NA=median")
EMBED = ("embed", "run.db", "--dimension", "3", "--delay", "2", "--testing-samples", "4")


class Driver(NamedTuple):
    """One command of the program, or one operation of the interface, and what comes before it."""

    name: str
    words: tuple  # of the command; for an operation its name, and "" or the file it reads
    before: tuple = ()  # the commands that make the state it starts from
    is_operation: bool = False
    changes: bool = True  # a command that only looks must answer as ever, or say that it cannot
    # An operation of several statements, documented so: the caller puts a transaction around it, and
    # loads the set anew when that was rolled back.
    is_in_transaction: bool = False
    # The answer may fail after what it needed was stored: figures, which do no harm.
    may_store_first: bool = False


COMMANDS = [
    Driver("load, new run", LOAD_NUMBERS),
    Driver("load, over a set", ("load", "others.csv", *RUN), (LOAD_NUMBERS,)),
    Driver(
        "load, testing set", ("load", "others.csv", *RUN, "--set", "testing"), (LOAD_NUMBERS,)
    ),
    Driver("load, transposed", ("load", "across.csv", *RUN, "--layout", "columns")),
    Driver("load, words, new run", LOAD_WORDS),
    Driver("load, share and scale", LOAD_SPLIT),
    Driver("load, share and scale, over a set", LOAD_SPLIT, (LOAD_NUMBERS,)),
    Driver(
        "load, two files",
        ("load", "numbers.csv", *RUN, "--testing", "others.csv", "--normalize", "range:0:1"),
    ),
    Driver(
        "load, testing set, prepared",
        ("load", "words.csv", *RUN, "--set", "testing"),
        (LOAD_SPLIT,),
    ),
    Driver(
        "categories --assign", ("categories", "run.db", "size", "--assign", "red=7"), (LOAD_SPLIT,)
    ),
    Driver(
        "categories --merge --encode",
        ("categories", "run.db", "answer", "--assign", "yes=1", "--assign", "no=0", "--encode"),
        (LOAD_WORDS,),
    ),
    Driver("missing --replace", FILL, (LOAD_SPLIT,)),
    Driver("missing --apply", (*FILL, "--apply"), (LOAD_SPLIT,)),
    Driver(
        "missing, taken back",
        ("missing", "run.db", "age", "--replace", "NA=none"),
        (LOAD_SPLIT, (*FILL, "--apply")),
    ),
    Driver(
        "stats, first time",
        ("stats", "run.db"),
        ((*LOAD_NUMBERS, "--no-stats"),),
        may_store_first=True,
    ),
    Driver("embed", EMBED, (LOAD_SERIES,)),
    Driver("reset", ("reset", "run.db"), (LOAD_SERIES, LOAD_LATER)),
    Driver("undo", ("undo", "run.db"), (LOAD_SERIES, LOAD_LATER, ("reset", "run.db"))),
    Driver("keep", ("keep", "run.db"), (LOAD_SERIES, LOAD_LATER, ("reset", "run.db"))),
    Driver("report, new page", ("report", "run.db", "-o", "page.html"), (LOAD_SPLIT,)),
    Driver(
        "report, over a page",
        ("report", "run.db", "-o", "page.html"),
        (LOAD_SPLIT, ("report", "run.db", "-o", "page.html"), FILL),
    ),
    Driver("plot --svg", ("plot", "run.db", "b", "--svg", "b.svg"), (LOAD_NUMBERS,)),
    Driver("register", ("register",)),
    Driver("unregister", ("unregister",), (("register",),)),
]

READERS = [
    Driver("check", ("check", "numbers.csv", "--all"), changes=False),
    Driver("info", ("info", "run.db"), (LOAD_SPLIT,), changes=False),
    Driver("show", ("show", "run.db", "--original"), (LOAD_SPLIT,), changes=False),
    Driver("original", ("original", "run.db", "--set", "all"), (LOAD_SPLIT,), changes=False),
    Driver("stats", ("stats", "run.db", "--by-class"), (LOAD_SPLIT,), changes=False),
    Driver("categories", ("categories", "run.db"), (LOAD_SPLIT,), changes=False),
    Driver("missing", ("missing", "run.db"), (LOAD_SPLIT,), changes=False),
    Driver("history", ("history", "run.db"), (LOAD_SPLIT,), changes=False),
    Driver("plot", ("plot", "run.db", "age"), (LOAD_SPLIT,), changes=False),
]


def operation(name, file="", *before, in_transaction=False):
    words = (name, file)
    return Driver(
        f"API {name}", words, before, is_operation=True, is_in_transaction=in_transaction
    )


CREATE_SCHEMA = ("API", "create-schema")
OPERATIONS = [
    operation("create-schema"),
    operation("parse", "numbers.csv", CREATE_SCHEMA),
    operation("parse-over", "others.csv", LOAD_NUMBERS),
    operation("parse-testing", "others.csv", LOAD_NUMBERS),
    operation("replace", "others.csv", LOAD_NUMBERS),
    operation("set-data", "numbers.csv", CREATE_SCHEMA),
    operation("set-data-over", "others.csv", LOAD_NUMBERS),
    operation("save", "", LOAD_NUMBERS),
    operation("set-item", "", LOAD_SERIES, EMBED, in_transaction=True),
    operation("record-set", "", LOAD_NUMBERS, in_transaction=True),
    operation("format-data-as", "", LOAD_SERIES),
    operation("clone", "", LOAD_NUMBERS),
    operation("reset-time-series", "", LOAD_SERIES, LOAD_LATER),
    operation("undo-reset", "", LOAD_SERIES, LOAD_LATER, ("reset", "run.db")),
    operation("clear-reset", "", LOAD_SERIES, LOAD_LATER, ("reset", "run.db")),
    operation("rename-training-labels", "", LOAD_SERIES, in_transaction=True),
    operation("save-column-data", "", LOAD_NUMBERS),
    operation("update-category", "", LOAD_SPLIT, in_transaction=True),
    operation("update-merging", "", LOAD_WORDS, in_transaction=True),
    operation("save-positive-class", "", LOAD_WORDS),
    operation("update-missing", "", LOAD_SPLIT),
    operation("apply-missing", "", LOAD_SPLIT, FILL),
    operation("calculate-statistics", "", (*LOAD_NUMBERS, "--no-stats"), in_transaction=True),
    operation("clear", "", LOAD_NUMBERS),
    operation("memory-parse", "numbers.csv"),
    operation("memory-parse-over", "others.csv"),
    operation("nominal-parse", "words.csv"),
    operation("memory-clone", "numbers.csv"),
    operation("memory-format-data-as", "series.csv"),
]

DRIVERS = [*COMMANDS, *READERS, *OPERATIONS]
