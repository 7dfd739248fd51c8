"""Three simple conditions over a year of daily bars in pandas, for comparison with the study.

study_pandas.py FOLDER [FROM]: the year files of every ticker, as the database has them, judged from the day FROM
on, "2026-07-01", or over the year before the newest day.
"""
import collections
import pathlib
import sys

import pandas

HORIZONS = (1, 5, 20, 60)
COST = 0.005


def bars_of(files):
    """The closes of a ticker by day."""
    parts = [pandas.read_csv(file, header=None, usecols=[0, 2], names=range(19)) for file in files]
    bars = pandas.concat(parts)
    bars.columns = ["day", "close"]
    bars["day"] = pandas.to_datetime(bars["day"], format="%m/%d/%y")
    return bars.drop_duplicates("day", keep="last").set_index("day")["close"]


def conditions_of(close):
    """Close above its average of 60, the average of 15 above that of 60, close below its average of 120."""
    mean = {length: close.rolling(length).mean() for length in (15, 60, 120)}
    return [close > mean[60], mean[15] > mean[60], close < mean[120]]


def main():
    tickers = collections.defaultdict(list)
    for file in sorted(pathlib.Path(sys.argv[1]).iterdir()):
        tickers[file.name.rsplit(".", 1)[0]].append(file)
    returns = collections.defaultdict(list)
    for files in tickers.values():
        close = bars_of(files)
        first = pandas.Timestamp(sys.argv[2]) if len(sys.argv) > 2 else close.index[-1] - pandas.Timedelta(days=364)
        in_span = close.index >= first
        entry = close.shift(-1)
        for number, holds in enumerate(conditions_of(close)):
            judged = holds & in_span
            signal = judged & ~judged.shift(1, fill_value=False)
            for horizon in HORIZONS:
                result = close.shift(-1 - horizon) * (1 - COST) / (entry * (1 + COST)) - 1
                returns[number, horizon].append(result[signal].dropna())
    for (number, horizon), parts in sorted(returns.items()):
        all_of_them = pandas.concat(parts)
        print(number + 1, horizon, len(all_of_them), all_of_them.mean())


main()
