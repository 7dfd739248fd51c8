# Gives each table a switch for every text and every number in its rows, so that one build holds all changes and the
# environment picks one of them. For tools/mutate_tables.sh, in the copy that it makes.
#
#   perl tools/mutate_tables.pl TABLE...
#
# Rewrites the files TABLE, which include "switched.h" from then on, and prints a line for each change: its number, its
# row as FILE:LINE, and what becomes what, with tabs between.
use strict;
use warnings;

my $number = 0;

# A row is a line that holds a text, or a number in braces or alone, or a table's first line with a row on it.
sub is_row {
    my ($line) = @_;
    return 0 if $line =~ m{^ *(//|#|namespace|return|if|for|using)};
    return $line =~ /^ +.*"[^"]*[A-Za-z][^"]*"/ || $line =~ /^ +\{[^}]*[0-9]/ || $line =~ /^ +[0-9.]+,$/ ||
        $line =~ /^const\w* std::array<.*\{\{/;
}

# `text`, as it stands between its quotes, with another last letter; nothing where it holds no letter. Some readers pass
# over case, so the letter becomes another one.
sub changed_text {
    my ($text) = @_;
    for (my $i = length($text) - 1; $i >= 0; --$i) {
        my $letter = substr($text, $i, 1);
        next if $letter !~ /[A-Za-z]/ || ($i > 0 && substr($text, $i - 1, 1) eq "\\");
        substr($text, $i, 1) = uc($letter) eq "Q" ? "X" : "Q";
        return $text;
    }
    return undef;
}

# One text in quotes, or several that the compiler joins, with a change for each name in them: names stand apart by
# tabs. A piece is a text and its line.
sub switched_texts {
    my ($file, $is_row, @pieces) = @_;
    my $whole = join "", map { $_->[0] } @pieces;
    my @line_of = map { ($_->[1]) x length $_->[0] } @pieces;
    my (@changes, $first);
    my $at = 0;
    for my $name (split /(\\t)/, $whole) {
        my $changed = changed_text($name);
        my $line = length($name) > 0 ? $line_of[$at + length($name) - 1] : 0;
        if (defined $changed && $is_row->[$line]) {
            push @changes, substr($whole, 0, $at) . $changed . substr($whole, $at + length $name);
            $number++;
            $first //= $number;
            print "$number\t$file:$line\t\"$name\" -> \"$changed\"\n";
        }
        $at += length $name;
    }
    return join("\n", map { "\"$_->[0]\"" } @pieces) if !@changes;
    # The lines below keep their numbers.
    return "Switched($first, " . join(", ", map { "\"$_\"" } $whole, @changes) . ")" . "\n" x ($pieces[-1][1] - $pieces[0][1]);
}

sub switched_number {
    my ($file, $line, $value) = @_;
    my $changed = $value + 1;
    $number++;
    print "$number\t$file:$line\t$value -> $changed\n";
    return "SwitchedNumber($number, $value, $changed)";
}

sub switched_file {
    my ($file) = @_;
    open(my $in, "<", $file) or die "$file: $!\n";
    my $text = do { local $/; <$in> };
    close $in;
    my @is_row = (0, map { is_row($_) ? 1 : 0 } split /\n/, $text);
    # What is chosen when the program starts is no constant of the compiler's.
    $text =~ s/\bconstexpr (?=std::array<[^;]*?= *\{|\w+ k\w+\[\])/const /g;
    my $out = "";
    my $line = 1;
    while ($text =~ /\G(?:(\/\/[^\n]*|^\#[^\n]*|\bconst std::array<[^;{]*)|((?:"(?:\\.|[^"\\])*"(?:\s+(?="))?)+)|((?<![\w.\[<])\d+(?:\.\d+)?(?![\w.]))|(\w+|.))/gcms) {
        my ($aside, $texts, $value, $rest) = ($1, $2, $3, $4);
        if (defined $texts) {
            my @pieces;
            my $here = $line;
            while ($texts =~ /"((?:\\.|[^"\\])*)"|(\n)/g) {
                if (defined $2) { ++$here } else { push @pieces, [$1, $here] }
            }
            my $switched = switched_texts($file, \@is_row, @pieces);
            # A format is checked by the compiler unless it is told that it comes later.
            $switched = "fmt::runtime($switched)" if $switched =~ /^Switched/ && $out =~ /fmt::format\(\s*$/;
            $out .= $switched;
            $line = $here;
        } elsif (defined $value) {
            $out .= $is_row[$line] ? switched_number($file, $line, $value) : $value;
        } else {
            my $same = $aside // $rest;
            $line += ($same =~ tr/\n//);
            $out .= $same;
        }
    }
    $out =~ s/^(#include|#pragma once)/$1 eq "#include" ? "#include \"switched.h\"\n#include" : "#pragma once\n#include \"switched.h\""/me;
    # Other files' own constants are made of these while the program starts.
    $out =~ s/^(?=const std::(?:array<|string_view \w+ =))/[[gnu::init_priority(200)]] /gm if $file =~ /\.cpp$/;
    open(my $to, ">", $file) or die "$file: $!\n";
    print $to $out;
    close $to or die "$file: $!\n";
}

switched_file($_) for @ARGV;
